"""What a notebook shows of a check: a small table and a picture of its row differences."""

from __future__ import annotations

from html import escape
from typing import List, Sequence

import numpy as np
from numpy.typing import NDArray

from . import _polarline
from ._polarline import Check, Pair
from ._values import verdict_of

MOST_PAIRS = 20
MOST_DOTS = 3000
PICTURE_WIDTH = 320


def _cell(pair: Pair, name: str) -> str:
    value = pair.figures[name]
    if value is None or isinstance(value, np.ndarray):
        return "<td></td>"
    return f"<td>{escape(_polarline.figure_text(value))}</td>"


def _row(pair: Pair, names: Sequence[str]) -> str:
    head = f"<tr><td>{pair.index}</td><td>{escape(pair.left)}</td><td>{pair.state}</td>"
    if pair.reason is not None:
        return f'{head}<td colspan="{max(len(names), 1)}">{escape(pair.reason.text)}</td></tr>'
    return head + "".join(_cell(pair, name) for name in names) + "</tr>"


def _table(check: Check) -> str:
    if not check.pairs:
        return ""
    names = [name for name in _polarline.main_figures() if any(pair.figures[name] is not None for pair in check.pairs)]
    head = "".join(f"<th>{escape(name)}</th>" for name in ["pair", "left", "state", *names])
    rows = "".join(_row(pair, names) for pair in check.pairs[:MOST_PAIRS])
    left_out = len(check.pairs) - MOST_PAIRS
    more = f"<p>and {left_out} more pairs</p>" if left_out > 0 else ""
    return f"<table><thead><tr>{head}</tr></thead><tbody>{rows}</tbody></table>{more}"


def _dots(check: Check) -> "NDArray[np.float64]":
    """x, y and row difference of the dots of all pairs, an even choice of very many."""
    columns = [np.stack([pair.points.left_x, pair.points.left_y, pair.points.dy]) for pair in check.pairs]
    all_dots = np.concatenate(columns, axis=1).astype(np.float64) if columns else np.empty((3, 0))
    dots: NDArray[np.float64] = all_dots[:, np.isfinite(all_dots).all(axis=0)]
    return dots[:, :: max(1, -(-dots.shape[1] // MOST_DOTS))]


def _picture(check: Check) -> str:
    """Every dot where the left pictures have it, in the colour of its row difference."""
    dots = _dots(check)
    width, height = check.cameras.width, check.cameras.height
    if dots.shape[1] == 0 or width == 0:
        return ""
    largest = float(np.abs(dots[2]).max()) or 1.0
    radius = max(width / 120.0, 1.0)
    marks: List[str] = []
    for x, y, row in dots.T:
        colour = "#b2182b" if row > 0 else "#2166ac"
        marks.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{radius:.1f}" fill="{colour}" '
                     f'fill-opacity="{0.1 + 0.9 * abs(row) / largest:.2f}"/>')
    svg = (f'<svg xmlns="http://www.w3.org/2000/svg" width="{PICTURE_WIDTH}" viewBox="0 0 {width} {height}" role="img" '
           f'aria-label="Row differences"><rect width="{width}" height="{height}" fill="#f4f4f4"/>{"".join(marks)}</svg>')
    return f"{svg}<p>Row differences: red above 0, blue below; full colour is {largest:.3g} px.</p>"


def html_of(check: Check) -> str:
    """A small table and picture for notebooks."""
    return f"<div><p><b>{escape(verdict_of(check))}</b></p>{_table(check)}{_picture(check)}</div>"
