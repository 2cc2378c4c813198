#!/usr/bin/env python3
"""Sweeps the noise of a simulated set: how certain are the row differences?   sweep.py [PAIRS]"""

from __future__ import annotations

import sys

import polarline


def main(pairs: int) -> None:
    print("noise  dy_means  scatter")
    for noise in (0.0, 2.0, 4.0, 8.0):
        seen = polarline.simulate("ring_320", pairs=pairs, noise=noise)
        try:
            result = polarline.check(seen, diagnose=False)
        except polarline.RunError as error:
            print(f"{noise:5.1f}  {error.name}: {error.text}")
            continue
        row = result.summary.figures["dy_means"]
        scatter = result.pairs[0].uncertainty.get("dy_means")
        print(f"{noise:5.1f}  {row.mean:8.4f}  {'' if scatter is None else f'{scatter.sd:7.4f}'}")


if __name__ == "__main__":
    main(int(sys.argv[1]) if len(sys.argv) > 1 else 2)
