#!/usr/bin/env python3
"""examples/fleet/parallel.sh with GNU parallel on two machines: workers are killed, the whole is killed, a machine is gone; nothing is lost.

The second machine is this one under another name (as root: a login in place of ssh that gives itself one), the third does not answer."""

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


def start(store, *options, **variables):
    environment = {**os.environ, "SETS": "2", "HOSTS": "hosts", **variables}
    # In a store of two machines, the dead of the other are known by their silence.
    command = [EXAMPLES / "parallel.sh", "list.txt", store, *OPTIONS, "--claim-timeout", "1", *options]
    return subprocess.Popen(command, env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, start_new_session=True)


def finish(run):
    lines, complaints = run.communicate(timeout=60)
    return run.returncode, lines.splitlines(), complaints


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
