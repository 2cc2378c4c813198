#!/usr/bin/env python3
"""Checks one set with two calibrations.   compare_calibrations.py SET OTHER_CALIBRATION [PAGE.html]"""

from __future__ import annotations

import sys
from typing import Optional

import polarline


def main(folder: str, other: str, page: Optional[str]) -> None:
    own = polarline.check(folder)
    new = polarline.check(polarline.Set(folder, calibration=other))
    for name in polarline.main_figures():
        before, after = own.summary.figures.get(name), new.summary.figures.get(name)
        if before is not None and after is not None:
            unit = "" if before.unit == "1" else before.unit
            print(f"{name:15} {before.mean:10.4f} -> {after.mean:10.4f} {unit}".rstrip())
    for label, result in (("own", own), ("other", new)):
        if result.diagnosis is not None:
            print(f"{label}: {result.diagnosis.text}")
    if page is not None:
        polarline.report([own, new], page, title="Two calibrations")


if __name__ == "__main__":
    if len(sys.argv) not in (3, 4):
        sys.exit(__doc__)
    try:
        main(sys.argv[1], sys.argv[2], sys.argv[3] if len(sys.argv) == 4 else None)
    except polarline.Error as error:
        sys.exit(str(error))
