#!/usr/bin/env python3
"""Plots where the row differences of a set lie in the left picture.   plot_residuals.py SET PLOT.png"""
# mypy: disable-error-code=import
# Debian's matplotlib comes without types.

from __future__ import annotations

import sys

try:
    import matplotlib
except ImportError:
    sys.exit("this needs matplotlib: sudo apt install python3-matplotlib")

matplotlib.use("Agg")

import matplotlib.pyplot as plt
import numpy as np

import polarline


def main(folder: str, plot: str) -> None:
    try:
        result = polarline.check(folder)
    except polarline.RunError as error:
        sys.exit(str(error))
    x = np.concatenate([pair.points.left_x for pair in result.pairs])
    y = np.concatenate([pair.points.left_y for pair in result.pairs])
    dy = np.concatenate([pair.points.dy for pair in result.pairs])
    if not np.isfinite(dy).any():
        sys.exit(f"{folder}: no row differences were measured, as of frames")
    largest = float(np.nanmax(np.abs(dy)))
    figure, axes = plt.subplots(figsize=(7, 5))
    dots = axes.scatter(x, y, c=dy, s=12, cmap="RdBu_r", vmin=-largest, vmax=largest)
    figure.colorbar(dots, label="row difference, left less right, pixels")
    axes.set(xlim=(0, result.cameras.width), ylim=(result.cameras.height, 0), aspect="equal", title=result.set.name)
    try:
        figure.savefig(plot, dpi=120)
    except (OSError, ValueError) as error:  # No such folder, or no such kind of picture.
        sys.exit(f"{plot}: {getattr(error, 'strerror', None) or error}")
    print(f"{len(dy)} dots of {result.summary.finished} pairs in {plot}")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
