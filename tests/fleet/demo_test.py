#!/usr/bin/env python3
"""scripts/fleet_demo: 40 sets of three models and two stations go through a Slurm of one node, and it ends with the page, which has all of them."""

import json
import pathlib
import re
import sqlite3
import subprocess
import sys
import tempfile
import time

from fleet import ROOT, check, documents


def check_drift(results):
    """Station 2's right cameras are pitched by 0.012 degrees more each day from the sixth on, five days long; station 1's are not."""
    values = {}
    for station, day, value in results.execute("SELECT station, day, c.value FROM causes c JOIN sets s ON s.id = c.set_id WHERE c.name = 'rotation_x'"):
        values.setdefault((station, day), []).append(value)
    for day, pitch in (("2026-03-10", 0.048), ("2026-03-11", 0.060)):
        mean = sum(values[("2", day)]) / len(values[("2", day)])
        check(abs(mean - pitch) < 0.008, f"station 2 on {day} is pitched by {pitch}: {mean}")
    check(all(abs(value) < 0.02 for (station, _), own in values.items() if station == "1" for value in own), f"station 1 is not pitched: {values}")


def check_page(folder):
    page = (folder / "fleet.html").read_text()
    data = json.loads(re.search(r'<script[^>]*id="polarline-data"[^>]*>(.*?)</script>', page, re.DOTALL).group(1).replace("\\u003c", "<"))
    fleet = data["fleet"]
    check(fleet["sets"] == 40, f"the page has all sets: {fleet['sets']}")
    keys = {each["key"]: set(each["values"]) for each in fleet["keys"]}
    check(keys["station"] == {"1", "2"} and keys["model"] == {"narrow", "wide", "dots"}, f"stations and models: {keys}")
    pages = [each["page"] for each in fleet["worst"] if each["page"]]
    check(pages and all((folder / page).is_file() for page in pages), f"it leads to the worst sets' own: {pages}")


def main():
    build = pathlib.Path(sys.argv[1])
    with tempfile.TemporaryDirectory(prefix="fleet_demo.") as made:
        folder = pathlib.Path(made) / "demo"
        begin = time.monotonic()
        done = subprocess.run([ROOT / "scripts/fleet_demo", "--built", build, folder], stdout=subprocess.PIPE, text=True, timeout=200, check=False)
        check(done.returncode == 0, f"it ended with {done.returncode}:\n{done.stdout}")
        print(f"{time.monotonic() - begin:.1f} s")
        check("Slurm: array" in done.stdout, f"Slurm did it:\n{done.stdout}")
        check(done.stdout.splitlines()[-1] == f"Page of the fleet: {folder}/fleet.html", f"it ends with the page:\n{done.stdout}")
        names = [name for name in documents(folder / "store") if not name.endswith(".metadata.json")]
        check(len(names) == 40, f"each set has its document: {len(names)}")
        with sqlite3.connect(folder / "results.sqlite") as results:
            check_drift(results)
        check_page(folder)
        again = subprocess.run([ROOT / "scripts/fleet_demo", "--built", build, ROOT / "docs"], stderr=subprocess.PIPE, text=True, check=False)
        check(again.returncode == 1 and "has something else in it" in again.stderr, "a folder of something else is left alone")


main()
