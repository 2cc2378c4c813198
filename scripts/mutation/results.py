"""The verdicts in build/mutate/results.csv, and what they come to."""

import csv
from collections import Counter, defaultdict

from mutation.sources import WORK

RESULTS = WORK / "results.csv"
FIELDS = ["file", "line", "column", "operator", "old", "new", "verdict", "stage"]
NOTICED = ("caught", "timeout")
UNNOTICED = ("survived", "doubtful")  # Doubtful: the late programs have not spoken yet.
NO_CHANGE = ("identical", "broken")


def key_of(row):
    return tuple(str(row[field]) for field in FIELDS[:6])


def text_of(row):
    return f"{row['file']}:{row['line']}:{row['column']} {row['operator']}: {row['old']!r} -> {row['new']!r}"


def known_results():
    if not RESULTS.exists():
        return {}
    with RESULTS.open(newline="") as file:
        return {key_of(row): row for row in csv.DictReader(file)}


class ResultFile:
    """Takes each verdict as it comes, so that a run can go on where the last one ended."""

    def __init__(self):
        is_new = not RESULTS.exists()
        self.file = RESULTS.open("a", newline="")
        self.writer = csv.DictWriter(self.file, FIELDS, extrasaction="ignore")
        if is_new:
            self.writer.writeheader()

    def add(self, row):
        self.writer.writerow(row)
        self.file.flush()


def print_table(title, rows, group):
    print(f"\n{title:24} caught  of   %")
    counts = defaultdict(Counter)
    for row in rows:
        counts[group(row)][row["verdict"] in NOTICED] += row["verdict"] not in NO_CHANGE
    for name, count in sorted(counts.items()):
        if total := count.total():
            print(f"{name:24} {count[True]:6} {total:4} {100 * count[True] / total:5.1f}")


def print_summary(rows):
    for row in sorted((row for row in rows if row["verdict"] in UNNOTICED), key=key_of):
        print(row["verdict"], text_of(row))
    print_table("folder", rows, lambda row: row["file"].split("/")[0])
    print_table("operator", rows, lambda row: row["operator"])
    print_table("all", rows, lambda row: "")
    verdicts = Counter(row["verdict"] for row in rows)
    print(", ".join(f"{name} {verdicts[name]}" for name in (*NOTICED, *UNNOTICED, *NO_CHANGE)))
