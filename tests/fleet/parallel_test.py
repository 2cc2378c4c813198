#!/usr/bin/env python3
"""examples/fleet/parallel.sh with GNU parallel on two machines: workers are killed, the whole is killed, a machine is gone, the sets
are away or go away; nothing is lost.

The second machine is this one under another name (as root: a login in place of ssh that gives itself one), the third does not answer."""

import json
import os
import pathlib
import signal
import subprocess
import sys
import time

from fleet import EXAMPLES, OPTIONS, check, check_same, count, fleet, kill_workers, one_worker, wait_for

LOGIN = """#!/bin/sh
shift  # The name.
[ "$1" != -- ] || shift
[ "$(id -u)" != 0 ] || exec unshare --uts sh -c 'hostname far-away; exec sh -c "$1"' sh "$*"
exec sh -c "$*"
"""


def start(store, *options, sets="list.txt", **variables):
    environment = {**os.environ, "SETS": "2", "HOSTS": "hosts", **variables}
    # In a store of two machines, the dead of the other are known by their silence.
    command = [EXAMPLES / "parallel.sh", sets, store, *OPTIONS, "--claim-timeout", "1", *options]
    return subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True)


def finish(run):
    lines, complaints = run.communicate(timeout=60)
    return run.returncode, lines.splitlines(), complaints


def sets_taken(expected):
    """The disk of the sets goes away while one worker goes through the one part."""
    pathlib.Path("hosts").write_text("1/:\n")
    run = start("sets taken", SETS="20", TRIES="1")
    wait_for(lambda: count("sets taken") >= 2, "documents are there")
    os.rename("a set", "away")
    code, lines, complaints = finish(run)
    check(code == 4 and "0 of 1 parts are done" in complaints, f"sets that went away are no answer: {code}, {complaints}")
    unread = [json.loads(line) for line in lines if not json.loads(line)["id"]]
    check(unread and all(line["retry"] for line in unread), f"what was away may be tried again: {lines}")
    check(all(f"could not be read: {line['set']}: " in complaints for line in unread), f"they are named: {complaints}")
    os.rename("away", "a set")
    code, _, complaints = finish(start("sets taken", SETS="20"))
    check(code == 0, f"sets that are back: ended with {code}: {complaints}")
    check_same("sets taken", expected, "sets taken away and given back")

    pathlib.Path("misspelt.txt").write_text("a set/0\nno set/0\na set/2\n")
    code, _, complaints = finish(start("misspelt", sets="misspelt.txt", TRIES="1"))
    check(code == 4 and complaints.count("could not be read") == 1 and "could not be read: no set/0: " in complaints, f"{code}, {complaints}")
    pathlib.Path("hosts").write_text("2/:\n1/false far-away\n")


def main():
    with fleet(sys.argv[1], ["parallel"], 14) as folder:
        expected = one_worker()
        login = folder / "login"
        login.write_text(LOGIN)
        login.chmod(0o755)
        pathlib.Path("hosts").write_text(f"1/:\n1/{login} far-away\n")

        run = start("a store")
        kill_workers(run.pid, 3)
        code, lines, complaints = finish(run)
        check(code == 0, f"with workers killed: ended with {code}: {complaints}")
        check_same("a store", expected, "with workers killed")
        check(len(lines) >= 15, f"each set is told: {len(lines)}")
        joblog = next(pathlib.Path("a store/joblog").glob("*.tsv")).read_text()
        check("far-away" in joblog and "\t:\t" in joblog, "both machines worked")

        run = start("killed")
        wait_for(lambda: count("killed") >= 2, "documents are there")
        os.killpg(run.pid, signal.SIGKILL)
        finish(run)
        check(count("killed") < count("a store"), "it was killed before its end")
        pathlib.Path("hosts").write_text("2/:\n1/false far-away\n")  # A machine that does not answer.
        code, _, complaints = finish(start("killed"))
        check(code == 0, f"called again: ended with {code}: {complaints}")
        check_same("killed", expected, "killed as a whole, called again")

        begin = time.monotonic()
        code, lines, _ = finish(start("killed"))
        check(code == 0 and not lines, f"a third call has nothing to do: {code}, {lines}")
        print(f"a call with nothing to do: {time.monotonic() - begin:.1f} s")

        os.rename("a set", "away")  # The disk of the sets is not mounted.
        code, _, complaints = finish(start("sets away", TRIES="1"))
        check(code == 4 and "0 of 8 parts are done" in complaints, f"sets that are away are no answer: {code}, {complaints}")
        os.rename("away", "a set")
        code, _, complaints = finish(start("sets away"))
        check(code == 0, f"sets that are back: ended with {code}: {complaints}")
        check_same("sets away", expected, "sets away and back")

        sets_taken(expected)

        run = start("taken")
        wait_for(lambda: count("taken") >= 2, "documents are there")
        os.rename("taken", "taken away")
        code, _, complaints = finish(run)
        check(code == 4 and "call it again" in complaints, f"a store taken away: ended with {code}: {complaints}")
        check(not os.path.exists("taken"), "nothing is written where the store was")
        os.rename("taken away", "taken")
        code, _, complaints = finish(start("taken"))
        check(code == 0, f"a store given back: ended with {code}: {complaints}")
        check_same("taken", expected, "store taken away and given back")

        os.mkdir("unmounted")
        code, lines, complaints = finish(start("unmounted"))
        check(code == 4 and not lines and "its disk is not mounted" in complaints, f"a folder that is no store: {code}, {complaints}")
        check(not os.listdir("unmounted"), "nothing is written into it")

        code, lines, complaints = finish(start("killed", "--limit", "no_such_figure<=1", TRIES="1"))
        check(code == 4 and not lines and "0 of 8 parts are done" in complaints, f"a wrong option is no answer: {code}, {complaints}")


main()
