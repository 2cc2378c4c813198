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


def test_memory_is_flat():
    seen = polarline.simulate("ring_320", pairs=1)
    for _ in range(max(RUNS // 4, 5)):
        one_of_each(seen)
    before = resident()
    for _ in range(RUNS):
        one_of_each(seen)
    grown = resident() - before
    print(f"{RUNS} runs: {grown / 1e6:.2f} MB more")
    assert grown < SPARE
