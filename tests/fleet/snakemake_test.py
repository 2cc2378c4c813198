#!/usr/bin/env python3
"""examples/fleet/Snakefile with Snakemake: a worker is killed, the store is taken away and given back, the list grows; nothing is lost, and nothing
is done twice."""

import os
import pathlib
import shutil
import subprocess
import sys

from fleet import EXAMPLES, OPTIONS, check, check_same, count, documents, fleet, kill_workers, one_worker, sets_of, wait_for


def start(store="a store"):
    command = ["snakemake", "-s", EXAMPLES / "Snakefile", "--cores", "2", "--config", "list=list.txt", f"store={store}", "parts=3",
               f"options={OPTIONS[0]} '{OPTIONS[1]}'"]
    return subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)


def finish(run, words):
    output, _ = run.communicate(timeout=60)
    check(run.returncode == 0, f"{words}: ended with {run.returncode}:\n{output}")
    return output


def main():
    with fleet(sys.argv[1], ["snakemake"], 12) as folder:
        os.environ["HOME"] = os.environ["XDG_CACHE_HOME"] = str(folder / "home")  # It keeps things there.
        expected = one_worker()
        run = start()
        kill_workers(run.pid, 1)
        output = finish(run, "with a worker killed")
        check("Trying to restart job" in output, f"the killed one is begun again:\n{output}")
        check_same("a store", expected, "with a worker killed")
        check(sets_of("a store.sqlite") == 12, "all sets are in the results")

        check("Nothing to be done" in finish(start(), "again"), "done is done")

        os.rename("a store", "elsewhere")
        os.mkdir("a store")  # As the place of a disk that is not mounted.
        run = start()
        output, _ = run.communicate(timeout=60)
        check(run.returncode != 0 and "its disk is not mounted" in output and not os.listdir("a store"), f"no store is begun there:\n{output}")
        os.rmdir("a store")
        os.rename("elsewhere", "a store")

        run = start("taken")
        wait_for(lambda: count("taken") >= 2, "documents are there")
        os.rename("taken", "taken away")
        output, _ = run.communicate(timeout=60)
        check(run.returncode != 0, f"a store taken away:\n{output}")
        written = [path for path in pathlib.Path("taken").rglob("*") if path.is_file()]
        check(not written, f"nothing is written where the store was: {written}")
        shutil.rmtree("taken", ignore_errors=True)  # Snakemake makes folders of its marks.
        os.rename("taken away", "taken")
        finish(start("taken"), "a store given back")
        check_same("taken", expected, "store taken away and given back")

        lines = pathlib.Path("list.txt").read_text().splitlines()
        pathlib.Path("list.txt").write_text("\n".join([*lines, "base\tserial=new"]) + "\n")
        output = finish(start(), "with a set more")
        check(output.count('"state":"judged"') == 2, f"the new one is judged, and the one that can't be used again:\n{output}")
        check(len(documents("a store")) == len(expected) + 2 and sets_of("a store.sqlite") == 13, "it is in the store and in the results")


main()
