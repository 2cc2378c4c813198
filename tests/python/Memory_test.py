"""Many runs take no more memory than few."""

import os

import numpy as np

import polarline
from conftest import SLOW

RUNS = int(os.environ.get("POLARLINE_MEMORY_RUNS", "24")) // SLOW
SPARE = 4_000_000  # What the allocator may keep for itself; a leaked picture each run would be more.


def resident():
    with open("/proc/self/statm", encoding="ascii") as file:
        return int(file.read().split()[1]) * os.sysconf("SC_PAGE_SIZE")


def one_of_each(seen):
    check = polarline.check(seen, limits="dy_means<=0", progress=lambda *_: None, uncertainty=False)
    check.to_json()
    check._repr_html_()
    assert np.isfinite(check.pairs[0].points.dy).all()
    polarline.detect(seen.left[0][:, ::-1], seen.target)
    try:
        polarline.check(seen, progress=lambda *_: 1 / 0, uncertainty=False)
    except ZeroDivisionError:
        pass


def everything(seen, folder):
    check = polarline.check(seen, refine=True)
    assert check.pairs[0].uncertainty and check.pairs[0].refined.figures
    check.report(folder / "report.html")
    calibration = polarline.import_calibration(folder / "calib.json", size=(320, 256)).calibration
    polarline.refine(seen.left[0], seen.target, calibration.left, type=1)
    polarline.board("rings-small:17x15:14")
    exported = polarline.exports.ExportedCalibParams()
    polarline.exports.ReadCalibParams(folder / "calib.json", exported)


def runs_of_all(count, seen, folder):
    for number in range(count):
        one_of_each(seen)
        if number % 8 == 0:
            everything(seen, folder)


def test_memory_is_flat(tmp_path):
    seen = polarline.simulate("ring_320", pairs=1)
    polarline.simulate("ring_320", tmp_path, pairs=1, force=True)
    runs_of_all(max(RUNS // 4, 5), seen, tmp_path)
    before = resident()
    runs_of_all(RUNS, seen, tmp_path)
    grown = resident() - before
    print(f"{RUNS} runs: {grown / 1e6:.2f} MB more")
    assert grown < SPARE
