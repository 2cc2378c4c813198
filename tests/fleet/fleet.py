"""What the tests of the engines share: the installed command, small sets, and whether a store is that of one worker that nobody disturbed."""

import contextlib
import json
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
EXAMPLES = ROOT / "examples/fleet"
OPTIONS = ["--limit", "tri_rms<=0.5"]


def fail(words):
    print(f"FAILED: {words}", file=sys.stderr)
    sys.exit(1)


def check(holds, words):
    if not holds:
        fail(words)


def wait_for(holds, words, seconds=60):
    end = time.monotonic() + seconds
    while not holds():
        check(time.monotonic() < end, f"{seconds} s long not so: {words}")
        time.sleep(0.02)


@contextlib.contextmanager
def fleet(build, programs, sets):
    """A folder with a list of sets, which is the working folder; the installed command comes first in PATH."""
    os.environ["PATH"] += ":/usr/sbin"
    for program in programs:
        check(shutil.which(program), f"{program} is not installed; scripts/setup --tests installs it")
    with tempfile.TemporaryDirectory(prefix="fleet.") as folder:
        subprocess.run(["cmake", "--install", build, "--component", "command", "--prefix", f"{folder}/installed"], check=True, stdout=subprocess.DEVNULL)
        os.environ["PATH"] = f"{folder}/installed/bin:{os.environ['PATH']}"
        os.chdir(folder)
        make_sets(sets)
        yield pathlib.Path(folder)
        os.chdir("/")


def make_sets(count):
    """Small sets that differ in their limits, of which some are exceeded; one set can't be used, two are the same."""
    subprocess.run(["polarline", "simulate", "ring_320", "base", "--pairs", "1", "--quiet"], check=True)
    os.mkdir("a set")
    lines = ["# sets of a test"]
    for k in range(count):
        one = pathlib.Path(f"a set/{k}")
        shutil.copytree("base", one)
        (one / "limits.txt").write_text(f"dy_means<={'0.0' if k % 5 == 1 else '1.'}{k + 1:03}\n")
        lines.append(f"{one}\tserial=A{k}\tstation={k % 2 + 1}")
    (one / "polar.txt").unlink()
    lines.append(lines[1])
    pathlib.Path("list.txt").write_text("\n".join(lines) + "\n")


def one_worker(store="expected", sets="list.txt"):
    done = subprocess.run(["polarline", "batch", sets, "--store", store, *OPTIONS], stdout=subprocess.PIPE, check=False)
    check(done.returncode == 2, f"one worker ended with {done.returncode}")
    return documents(store)


def documents(store):
    """Names and contents of a store's documents and what the list said of the sets, but for times."""
    found = {}
    for path in pathlib.Path(store).glob("??/*.json"):
        found[path.name] = json.loads(path.read_text())
        found[path.name].pop("started", None)
        found[path.name].pop("seconds", None)
    return found


def count(store):
    return len([path for path in pathlib.Path(store).glob("??/*.json") if not path.name.endswith(".metadata.json")])


def check_same(store, expected, words):
    found = documents(store)
    check(len(expected) > 10, "a store that nobody disturbed has its documents")
    check(found.keys() == expected.keys(), f"{words}: other documents: {sorted(found.keys() ^ expected.keys())}")
    for name, document in expected.items():
        check(found[name] == document, f"{words}: {name} is another one")
    left = [path.name for path in pathlib.Path(store).glob("??/*") if path.suffix != ".json"]
    check(not left, f"{words}: left in the store: {left}")


def sets_of(results):
    done = subprocess.run(["sqlite3", results, "SELECT count(*) FROM sets"], stdout=subprocess.PIPE, text=True, check=True)
    return int(done.stdout)


# ---- Processes of ours ----


def process_stats():
    for path in pathlib.Path("/proc").glob("[0-9]*/stat"):
        with contextlib.suppress(OSError):
            head, tail = path.read_text().rsplit(")", 1)
            process, name = head.split(" (", 1)
            yield int(process), name, int(tail.split()[1]), tail.split()[0]


def descendants(ancestor, name):
    """Of a process, those that run a program."""
    stats = list(process_stats())
    family, size = {ancestor}, 0
    while len(family) > size:
        size = len(family)
        family |= {process for process, _, parent, _ in stats if parent in family}
    return [process for process, program, _, state in stats if process in family and program == name and state != "Z"]


def command_line(process):
    with contextlib.suppress(OSError):
        return pathlib.Path(f"/proc/{process}/cmdline").read_text()
    return ""


def kill_workers(ancestor, times):
    """Kills a worker as often as that, each time another."""
    killed = set()

    def kill_one():
        for process in descendants(ancestor, "polarline"):
            if process not in killed and "--existing" in command_line(process):  # What makes the store is no worker.
                killed.add(process)
                os.kill(process, signal.SIGKILL)
                return True
        return False

    for _ in range(times):
        wait_for(kill_one, "a worker is there to be killed")
        time.sleep(0.15)
