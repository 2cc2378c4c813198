#!/usr/bin/env python3
"""scripts/with_slurm: the command has a Slurm, its exit code is returned, and nothing stays behind, also where it is ended from outside."""

import os
import pathlib
import signal
import subprocess
import time

from fleet import ROOT, check, process_stats, command_line, wait_for

WITH_SLURM = [ROOT / "scripts/with_slurm", "--nodes", "1", "--cpus", "1"]


def left_of(folder):
    return [command_line(process) for process, *_ in process_stats() if folder in command_line(process)]


def check_gone(folder, words):
    check(not pathlib.Path(folder).exists(), f"{words}: its folder stays")
    wait_for(lambda: not left_of(folder), f"{words}: its services end", 10)


def main():
    job = """echo $SLURM_FOLDER
      sbatch --parsable --output=/dev/null --wrap 'exit 3' > /dev/null
      while [ -n "$(squeue -h)" ]; do sleep 0.1; done
      scontrol -o show job | grep -o 'ExitCode=[0-9]*'
      exit 7"""
    done = subprocess.run([*WITH_SLURM, "sh", "-c", job], stdout=subprocess.PIPE, text=True, timeout=120, check=False)
    folder, code = done.stdout.split()
    check(done.returncode == 7, f"the command's exit code is returned: {done.returncode}")
    check(code == "ExitCode=3", f"a job of exit code 3 ran: {code}")
    check_gone(folder, "ended")

    with subprocess.Popen([*WITH_SLURM, "sh", "-c", "echo $SLURM_FOLDER; exec sleep 1000"], stdout=subprocess.PIPE, text=True) as run:
        folder = run.stdout.readline().strip()
        check(pathlib.Path(folder).is_dir() and left_of(folder), "its services run")
        begin = time.monotonic()
        os.kill(run.pid, signal.SIGTERM)
        code = run.wait(timeout=60)
    print(f"ended by SIGTERM within {time.monotonic() - begin:.1f} s")
    check(code == 128 + signal.SIGTERM, f"ended by SIGTERM: {code}")
    check_gone(folder, "ended by SIGTERM")


main()
