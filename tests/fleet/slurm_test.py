#!/usr/bin/env python3
"""examples/fleet/fleet.sbatch with a Slurm of two nodes: a node dies and comes back, only its service does while the task works on, a task is
cancelled, one is put back into the queue, one runs twice at once, the store is away when tasks begin or while they work; the store ends as that
of one worker, and what was merged says so."""

import contextlib
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time

from fleet import EXAMPLES, OPTIONS, ROOT, check, check_same, count, descendants, fleet, one_worker, process_stats, sets_of, wait_for

PROGRAMS = ["munged", "slurmctld", "slurmd", "sbatch", "sqlite3"]
SETS, FEW = 24, 3


def ask(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True, timeout=30).stdout.strip()


def submit(store, tasks, sets="list.txt"):
    os.environ["TASKS"] = str(tasks)
    array, merge = ask(EXAMPLES / "fleet.sbatch", sets, store, *OPTIONS, "--claim-timeout", "1").split()
    return array, merge


def in_queue(job, *more):
    return ask("squeue", "-h", "-r", "-j", job, "-o", "%i %T %N", *more).splitlines()


def running(array):
    """Tasks that run, by node: 17_2 is the second of array 17."""
    return {node: job for job, _, node in (line.split() for line in in_queue(array, "-t", "R"))}


def jobs():
    return ask("scontrol", "-o", "show", "job")


def end_of(array, merge):
    wait_for(lambda: not in_queue(f"{array},{merge}"), "all jobs have ended")


def kill(processes):
    for process in processes:
        with contextlib.suppress(ProcessLookupError):
            os.kill(process, signal.SIGKILL)


def service_of(node):
    return int((pathlib.Path(os.environ["SLURM_FOLDER"]) / f"{node}.pid").read_text())


def start_service(node):
    with open(f"slurmd.{node}.out", "ab") as output:
        subprocess.Popen(["slurmd", "-D", "-N", node], stdout=output, stderr=output)


def node_dies(node):
    """The node's service, what watches over its tasks, and all that these began."""
    folder = pathlib.Path(os.environ["SLURM_FOLDER"])
    watched = [path.name.split("_")[1].split(".")[0] for path in folder.glob(f"spool.{node}/{node}_*")]  # A socket a task: n1_5.4294967291.
    watchers = [process for process, name, _, _ in process_stats() if name == "slurmstepd" and any(f"[{job}." in title(process) for job in watched)]
    check(watchers, f"tasks run on {node}")
    family = [process for watcher in watchers for name in ("slurm_script", "polarline", "bash", "awk") for process in descendants(watcher, name)]
    kill([service_of(node), *watchers, *family])
    ask("scontrol", "update", f"NodeName={node}", "State=DOWN", "Reason=died")


def title(process):
    with contextlib.suppress(OSError):
        return (pathlib.Path("/proc") / str(process) / "cmdline").read_text()
    return ""


def restarts(array):
    return [int(each) for each in re.findall(rf"ArrayJobId={array} .*?Restarts=(\d+)", jobs())]


def disturbed(expected):
    """All at once: there are more tasks than a node has time for. Meanwhile another store and another list are away, whose tasks wait for their
    turn again."""
    away = submit_without_disk("link", "few.txt")
    make_store("late")
    late = ask("sbatch", "--parsable", "--array=1", EXAMPLES / "fleet.sbatch", "not there yet/few.txt", "late", *OPTIONS)
    array, merge = submit("store", 6)
    wait_for(lambda: restarts(away[0]) == restarts(late) == [1], "the tasks whose store or list is away are put back")
    os.rmdir("disk/store")  # Fails where somebody wrote into it.
    os.rename("disk there/store", "disk/store")
    os.makedirs("not there yet")
    shutil.copy("few.txt", "not there yet")

    wait_for(lambda: len(running(array)) == 2 and count("store") >= 2, "both nodes work")
    node, _ = sorted(running(array).items())[0]
    node_dies(node)
    other = next(job for where, job in running(array).items() if where != node)
    ask("scontrol", "requeue", other)
    waiting = [line.split()[0] for line in in_queue(array, "-t", "PD") if line.split()[0] != other]
    ask("scancel", waiting[-1])
    start_service(node)
    end_of(array, merge)
    check(sum(restarts(array)) >= 2, f"one task was lost with its node, one was put back: {restarts(array)}")
    check(count("store") < documented(expected), "what was cancelled is missing")
    check(sets_of("store.sqlite") == count("store"), "the merge ran, and has what is there")

    end_of(*submit("store", 2))
    check_same("store", expected, "submitted again")
    check(sets_of("store.sqlite") == SETS, "all sets are in the results")
    end_of(f"{away[0]},{late}", away[1])
    check(count("link") == FEW and sets_of("link.sqlite") == FEW, "all sets are in the store that was away")
    check(count("late") == FEW, "all sets of the list that was away are judged")


def make_store(store):
    ask("polarline", "batch", "--store", store, "--make-store")


def submit_without_disk(link, sets):
    """The disk of the store goes away before the task begins; an empty folder stands in its place."""
    for folder in ("disk", "disk there"):
        os.mkdir(folder)
    make_store("disk/store")
    os.symlink("disk/store", link)
    ask("scontrol", "update", "PartitionName=main", "State=DOWN")
    jobs_of = submit(link, 1, sets)
    os.rename("disk/store", "disk there/store")
    os.mkdir("disk/store")
    ask("scontrol", "update", "PartitionName=main", "State=UP")
    return jobs_of


def documented(expected):
    return len([name for name in expected if not name.endswith(".metadata.json")])


def service_dies(expected):
    """Of a node only slurmd dies: the task works on, is not begun again, and its end is told once the service is back."""
    array, merge = submit("served", 2)
    wait_for(lambda: len(running(array)) == 2 and count("served") >= 2, "both nodes work")
    node, job = sorted(running(array).items())[0]
    kill([service_of(node)])
    told = pathlib.Path(f"polarline-{job}.out")  # Array and task.
    so_far = told.read_text().count("\n")
    wait_for(lambda: told.read_text().count("\n") >= so_far + 2, "its task works on")
    start_service(node)
    end_of(array, merge)
    check_same("served", expected, "slurmd killed")
    check(restarts(array) == [0, 0], f"no task was begun again: {restarts(array)}")
    check(sets_of("served.sqlite") == SETS, "all sets are in the results")


def store_taken(expected):
    """The store goes away while both tasks work, and comes back: they tell what they could not write, and are put back into the queue."""
    array, merge = submit("taken", 2)
    wait_for(lambda: len(running(array)) == 2 and count("taken") >= 2, "both nodes work")
    os.rename("taken", "taken away")
    wait_for(lambda: restarts(array) == [1, 1], "both are put back")
    check(not os.path.exists("taken"), "nothing is written where the store was")
    os.rename("taken away", "taken")
    end_of(array, merge)
    check_same("taken", expected, "store taken away and given back")
    lines = [json.loads(line) for path in pathlib.Path().glob(f"polarline-{array}_*.out") for line in path.read_text().splitlines() if line.startswith("{")]
    check(any(line["state"] == "not written" and line["retry"] for line in lines), "they told what was not written")
    check(sets_of("taken.sqlite") == SETS, "all sets are in the results")


def asked_to_end():
    """A task that is cancelled finishes its set."""
    array, merge = submit("ended", 1)
    wait_for(lambda: count("ended") >= 1, "it works")
    ask("scancel", array)
    end_of(array, merge)
    lines = [json.loads(line) for line in pathlib.Path(f"polarline-{array}_1.out").read_text().splitlines() if line.startswith("{")]
    check(0 < len(lines) < SETS and len(lines) == count("ended"), f"it told {len(lines)} sets, {count('ended')} are in the store")
    left = [path.name for path in pathlib.Path("ended").glob("??/*") if path.suffix != ".json"]
    check(not left, f"it left {left}")
    check(restarts(array) == [0] and re.search(rf"ArrayJobId={array} .*JobState=CANCELLED", jobs()), "it is cancelled, not begun again")


def twice(expected):
    """The same part of the list twice at once, as where a node that only seemed dead goes on beside the task that took its place."""
    both = [submit("twice", 1) for _ in range(2)]
    wait_for(lambda: sum(len(running(array)) for array, _ in both) == 2, "both copies run")
    for array, merge in both:
        end_of(array, merge)
    check_same("twice", expected, "two copies of one task")
    lines = [json.loads(line) for array, _ in both for line in pathlib.Path(f"polarline-{array}_1.out").read_text().splitlines() if line.startswith("{")]
    judged = [line["set"] for line in lines if line["state"] == "judged" and line["exit_code"] < 2]
    check(len(judged) == len(set(judged)), f"no set was judged by both: {sorted(judged)}")
    check(len(lines) == 2 * (SETS + 1), f"each copy told every set: {len(lines)}")
    check(sets_of("twice.sqlite") == SETS, "all sets are in the results once, though two merges ran")


def wrong_list():
    pathlib.Path("wrong.txt").write_text("base\tno metadata\n")
    array, merge = submit("wrong", 1, "wrong.txt")
    end_of(array, merge)
    check(restarts(array) == [0] and re.search(rf"ArrayJobId={array} .*JobState=FAILED", jobs()), "a list that is none fails, once")


def main():
    if "SLURM_FOLDER" not in os.environ:
        os.execv(ROOT / "scripts/with_slurm", ["with_slurm", "--nodes", "2", "--cpus", "1", sys.executable, "-B", *sys.argv])
    with fleet(sys.argv[1], PROGRAMS, SETS):
        expected = one_worker()
        few = pathlib.Path("list.txt").read_text().splitlines()[:FEW + 1]
        pathlib.Path("few.txt").write_text("\n".join(few) + "\n")
        steps = {"disturbed": lambda: disturbed(expected), "slurmd killed": lambda: service_dies(expected), "store taken": lambda: store_taken(expected),
                 "twice": lambda: twice(expected), "asked to end": asked_to_end, "wrong list": wrong_list}
        for name, step in steps.items():
            begin = time.monotonic()
            step()
            print(f"{name}: {time.monotonic() - begin:.1f} s", flush=True)


main()
