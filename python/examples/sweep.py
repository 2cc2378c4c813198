#!/usr/bin/env python3
"""Sweeps the noise of a simulated set: how certain are the row differences?   sweep.py [PAIRS]

`scatter`: by how much `dy_means` of a pair would differ from picture to picture, the mean over the pairs."""

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
        told = [pair.uncertainty["dy_means"].sd for pair in result.pairs if "dy_means" in pair.uncertainty]
        print(f"{noise:5.1f}  {row.mean:8.4f}  {f'{sum(told) / len(told):7.4f}' if told else ''}")


if __name__ == "__main__":
    pairs = sys.argv[1] if len(sys.argv) > 1 else "2"
    if not pairs.isdecimal() or int(pairs) < 1:
        sys.exit(f"sweep.py: PAIRS is '{pairs}'; a number of pairs from 1 on was wanted")
    main(int(pairs))
