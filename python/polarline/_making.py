"""From pictures, a calibration and a board to a set."""

from __future__ import annotations

import os
from typing import Iterable, List, Optional, Tuple, Union

from . import _polarline
from ._arguments import Lines, Progress, flag, lines_of, number, progress_of, refuse, text, two
from ._files import StrPath, bytes_of
from ._polarline import ImportedCalibration, ImportOptions, MadeSet, Target

StrPaths = Union[StrPath, Iterable[StrPath]]


def import_options(format: str, scale: float, model: str, size: Optional[Tuple[int, int]], baseline: Optional[float],
                   pair: Optional[Tuple[int, int]], swap: bool) -> ImportOptions:
    return ImportOptions(format=text("format", format), scale=number("scale", scale), model=text("model", model),
                         size=two("size", size, "(columns, rows)"),
                         baseline=None if baseline is None else number("baseline", baseline),
                         pair=two("pair", pair, "(left, right)"), swap=flag("swap", swap))


def import_calibration(*files: StrPath, format: str = "", scale: float = 1.0, model: str = "",
                       size: Optional[Tuple[int, int]] = None, baseline: Optional[float] = None,
                       pair: Optional[Tuple[int, int]] = None, swap: bool = False) -> ImportedCalibration:
    """Reads the calibration of a pair that another tool wrote, or our own JSON.

    Parameters
    ----------
    *files : path
        One file, or one for each camera, the left one first.
    format : str
        A name of `calibration_formats`; empty: told by the content.
    scale : float
        Board units in a unit of the file: 1000 from metres to millimetres.
    model : str
        'brown' or 'fisheye', where the file does not tell.
    size : (int, int), optional
        (columns, rows) of both cameras' pictures, where the file does not tell.
    baseline : float, optional
        Length between the cameras, board unit, where the file lost it.
    pair : (int, int), optional
        Which cameras of several are left and right, from 0.
    swap : bool
        Exchange left and right.

    Returns
    -------
    ImportedCalibration

    Raises
    ------
    InputError
        For what is no such calibration, and for one that ours can't hold exactly.
    """
    return _polarline.import_calibration([bytes_of(file) for file in files],
                                         import_options(format, scale, model, size, baseline, pair, swap))


def paths_of(name: str, given: StrPaths) -> List[bytes]:
    """One path, or several."""
    if isinstance(given, (str, os.PathLike)):
        return [bytes_of(given)]
    if isinstance(given, Iterable) and not isinstance(given, bytes):
        paths = list(given)
        if all(isinstance(path, (str, os.PathLike)) for path in paths):
            return [bytes_of(path) for path in paths]
    raise refuse(name, given, "a path, or a sequence of such, was wanted")


def init(folder: StrPath, left: StrPaths, right: StrPaths, board: Union[Target, str], calibration: StrPaths, *,
         pairing: str = "auto", limits: Lines = (), copy: bool = False, force: bool = False, format: str = "",
         scale: float = 1.0, model: str = "", size: Optional[Tuple[int, int]] = None, baseline: Optional[float] = None,
         pair: Optional[Tuple[int, int]] = None, swap: bool = False, progress: Optional[Progress] = None) -> MadeSet:
    """Makes a set, a folder that can be checked, of pictures, a board and a calibration.

    Parameters
    ----------
    folder : path
        Of the set; it is made.
    left, right : path or sequence of paths
        Pictures, folders of them, or patterns with ``*``, ``?``, ``[a-c]`` and ``**``.
    board : Target or str
        The board, also in words, such as ``'rings-small:17x15:14'``.
    calibration : path or sequence of paths
        Files of any tool that `import_calibration` knows, or our own binary file.
    pairing : str
        How pictures are paired: 'names' (the part that varies), 'stamps', 'order', or 'auto', which chooses.
    limits : str or sequence of str
        ``'FIGURE OP VALUE'`` each, for ``limits.txt``.
    copy : bool
        Copy the pictures into the set; without it they are named where they are.
    force : bool
        Replace the files of a set that is there.
    format, scale, model, size, baseline, pair, swap
        Of the calibration, as for `import_calibration`.
    progress : callable, optional
        Called with the pictures that were looked at, and all. What it raises ends the work and comes back.

    Returns
    -------
    MadeSet
        What was written, what was guessed (`MadeSet.guesses`), and what to look at (`MadeSet.warnings`).

    Raises
    ------
    InputError
        For pictures that are missing, do not decode or differ in size, a board, calibration or limit that can't be
        used, and, without `force`, files that are there.
    OutputError
        Where the set can't be written.

    Examples
    --------
    >>> import tempfile
    >>> with tempfile.TemporaryDirectory() as folder:
    ...     seen = polarline.simulate('ring_320', f'{folder}/seen')
    ...     made = polarline.init(f'{folder}/mine', f'{folder}/seen/left_*.png', f'{folder}/seen/right_*.png',
    ...                           'rings-small:17x15:14', f'{folder}/seen/calib.json')
    ...     polarline.check(f'{folder}/mine').verdict
    'pass'
    >>> len(made.pairs), made.size
    (2, (320, 256))
    """
    if not isinstance(board, (Target, str)):
        raise refuse("board", board, "a Target or a board in words was wanted; Target.read reads a file")
    return _polarline.init_set(bytes_of(folder), paths_of("left", left), paths_of("right", right),
                               board.text if isinstance(board, Target) else board, paths_of("calibration", calibration),
                               import_options(format, scale, model, size, baseline, pair, swap), pairing=text("pairing", pairing),
                               limits=lines_of("limits", limits, "a text such as 'dy_means<=0.1'"), copy=flag("copy", copy),
                               force=flag("force", force), progress=progress_of(progress))
