"""The copy of the sources in build/mutate, its build, and which tests may notice a change of which file."""

import shutil
import subprocess
from pathlib import Path

from mutation.families import families
from mutation.operators import mutants

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / "build/mutate"
SOURCE = WORK / "source"
BUILD = SOURCE / "build/release"

# What is changed, and the test programs that may notice it, the nearest first.
FOLDERS = {
    "platform": ["platform", "input", "exports", "allocation"],
    "input": ["input", "exports", "allocation"],
    "camera": ["camera", "polar", "exports"],
    "MorvenKit/src": ["MorvenKit", "Tallowfen", "polar", "exports"],
    "Tallowfen/src": ["Tallowfen", "polar", "exports"],
    "polar": ["polar", "exports"],
    "exports": ["exports", "allocation"],
    "store/work": ["store"],
    "store/results": ["store"],
    "store/fleet": ["store"],
}
LATE = ["exports", "allocation"]  # They take minutes: the mutants that the others leave go there at the end.


def copy_sources():
    """What git knows of, and only what differs, so that as little as possible is built again. What git no longer knows goes."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True, capture_output=True, text=True)
    names = {name for name in listed.stdout.split() if (ROOT / name).is_file()}
    for copy in [path for path in SOURCE.rglob("*") if path.is_file() and BUILD.parent not in path.parents]:
        if str(copy.relative_to(SOURCE)) not in names:
            copy.unlink()
    for name in names:
        origin, copy = ROOT / name, SOURCE / name
        if not (copy.is_file() and copy.read_bytes() == origin.read_bytes()):
            copy.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(origin, copy)


def programs_for(mutants):
    """Those that the tests of these need, and no others, as each takes its time to be built."""
    return sorted({program for name in {mutant["file"] for mutant in mutants} for program in programs_of(name)})


def build(programs):
    # A changed file is compiled alone by its own command, which no precompiled header may stand behind.
    options = ["--no-warn-unused-cli", "-DPLP_PCH=OFF", "-DPLP_UNITY=OFF", "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=lld"]
    subprocess.run(["cmake", "--preset", "release", *options], cwd=SOURCE, check=True, stdout=subprocess.DEVNULL)
    targets = ["test_" + name for name in programs]
    subprocess.run(["cmake", "--build", "--preset", "release", "-j", "1", "--target", *targets], cwd=SOURCE, check=True)


def programs_of(name):
    return next(programs for folder, programs in FOLDERS.items() if name.startswith(folder + "/"))


def own_filter(name):
    """The gtest filter of the file's own test, whose suites bear its name; none if it has no test of its own."""
    path = Path(name)
    test = SOURCE / "tests" / str(path.parent).replace("/src", "") / f"{path.stem}_test.cpp"
    return f"{path.stem}*:*/{path.stem}*" if test.exists() else ""


def texts_of(suffix, folders):
    paths = sorted(path for folder in folders for path in (SOURCE / folder).rglob("*" + suffix))
    return {str(path.relative_to(SOURCE)): path.read_text() for path in paths}


def rows_of(name, text, known):
    return [{"file": name, "line": text.count("\n", 0, start) + 1, "column": start - text.rfind("\n", 0, start),
             "operator": operator, "old": text[start:end], "new": new, "start": start, "end": end}
            for start, end, operator, new in mutants(text, known)]


def mutants_by_file():
    """Of each changed file the mutants as rows of the results, with the place that they have in its text."""
    texts = texts_of(".cpp", FOLDERS)
    headers = texts_of(".h", ["include", *(folder.split("/")[0] for folder in FOLDERS)])
    known = families([*headers.values(), *texts.values()])
    return {name: rows_of(name, text, known) for name, text in texts.items()}
