"""Checks of whole sets."""

from __future__ import annotations

import importlib
import json
from types import FunctionType
import os
from typing import Any, Dict, Iterable, List, Mapping, NamedTuple, Optional, Sequence, Tuple, Union

import numpy as np

from . import _polarline
from ._arguments import Lines, Pictures, Progress, a_whole, flag, lines_of, pictures_of, progress_of, settings_of, text, two
from ._errors import InputError, RunError
from ._files import StrPath, bytes_of, write_whole
from ._html import html_of
from ._polarline import Check, Diagnosis, Simulated
from ._set import SetLike, files_of


class Tool(NamedTuple):
    """What made a document.

    Attributes
    ----------
    name : str
        Of the program, ``'polarline'``.
    version : str
        Of the program, as ``'1.0.0'``.
    library : str
        Name and version of the library underneath.
    """

    name: str
    version: str
    library: str


_EMPTY: Dict[str, Any] = json.loads(_polarline.empty_document())
TOOL = Tool(**_EMPTY["tool"])
SCHEMA: str = _EMPTY["schema"]


def _run(given: SetLike, left: Optional[Pictures], right: Optional[Pictures], progress: Optional[Progress],
         **options: Any) -> Check:
    """A check whatever came of it."""
    if isinstance(given, Simulated) and left is None and right is None:
        left, right = given.left, given.right
    if (left is None) != (right is None):
        raise TypeError(f"{'left' if left is None else 'right'}: found None; as many pictures as on the other side were wanted")
    pictures = pictures_of("left", left), pictures_of("right", right)
    with files_of(given) as files:
        return _polarline.run_check(files, *pictures, progress_of(progress), **options)


def _advice_on(name: str) -> str:
    """What `explain` advises on a status."""
    return _polarline.explain(name)[0].advice


def check(set: SetLike, left: Optional[Pictures] = None, right: Optional[Pictures] = None, *,
          limits: Lines = (), refine: bool = False, progress: Optional[Progress] = None,
          settings: Union[Mapping[str, object], Lines] = (), pairs: Optional[Tuple[int, int]] = None,
          out: Optional[StrPath] = None, write_corrected: Optional[StrPath] = None, diagnose: bool = True,
          uncertainty: bool = True) -> Check:
    """Checks a set: runs the library over its pairs and judges the figures by limits.

    Parameters
    ----------
    set : path, Set or Simulated
        The folder of a set, a set whose files are named one by one, or one that was simulated in memory.
    left, right : sequence of ndarray, optional
        Pictures in place of those of the set's list, one a pair: grey of shape (rows, columns), uint8 or
        uint16, or uint8 of shape (rows, columns, 3 or 4) in the order blue, green, red. Nothing is copied where rows
        run from left to right.
    limits : str or sequence of str
        ``'FIGURE OP VALUE'`` each, such as ``'dy_means<=0.1'``, besides those of the set.
    refine : bool
        Refines the dots' centres and gives every figure from these, too: `Pair.refined`.
    progress : callable, optional
        Called with the pairs done and all pairs behind each pair. What it raises ends the check and comes back.
    settings : mapping or sequence of str
        Keys of the polar configuration for this run, ``{'eccentricity': 1}`` or ``['eccentricity=1']``.
    pairs : (int, int), optional
        Positions of the first and the last pair, from 0: ``(0, 4)`` are five.
    out : path, optional
        Folder for the library's own files.
    write_corrected : path, optional
        Where the calibration goes with the causes taken out (.json; .bin of a binary one); the set is then run
        once more with it.
        Where no cause is found nothing is written: `Diagnosis.correction` is None, and a warning says so.
    diagnose : bool
        Look for the causes of the row differences.
    uncertainty : bool
        Tell how certain the figures are, for which the dots are detected once more.

    Returns
    -------
    Check
        With the verdict ``'pass'`` or ``'fail'``.

    Raises
    ------
    RunError
        For a run that ends without figures, an input or a limit that can't be used, and a file that can't be
        written. `RunError.check` has what was measured before.
    TypeError
        For what is no picture, and for other arguments of a wrong type.
    KeyboardInterrupt
        For Ctrl-C, behind the pair that is being measured.

    Notes
    -----
    The GIL is free while the library works. Its calls may not overlap within a process, so that threads take turns;
    processes run side by side.

    Examples
    --------
    >>> result = polarline.check(polarline.simulate('ring_320'), limits='dy_means<=5')
    >>> result.verdict
    'pass'
    >>> result.pairs[0].points.dy.dtype
    dtype('float32')
    """
    done = _run(set, left, right, progress, limits=lines_of("limits", limits, "a text such as 'dy_means<=0.1'"),
                refine=flag("refine", refine), settings=settings_of(settings), pairs=two("pairs", pairs, "(first, last)"),
                out=b"" if out is None else bytes_of(out), diagnose=flag("diagnose", diagnose),
                write_corrected=b"" if write_corrected is None else bytes_of(write_corrected),
                uncertainty=flag("uncertainty", uncertainty))
    if done.verdict == "error":
        status = done.status
        raise RunError(status.text, status=status.code, name=status.name, retry=status.retry, check=done,
                       advice=status.advice or _advice_on(status.name))
    return done


def diagnose(set: SetLike, left: Optional[Pictures] = None, right: Optional[Pictures] = None, *, refine: bool = True,
             progress: Optional[Progress] = None) -> Diagnosis:
    """Says why the rows of a set differ: which misalignments of the right camera would make them.

    Parameters
    ----------
    set, left, right, progress
        As for `check`.
    refine : bool
        Diagnose from refined centres, which tells smaller causes.

    Returns
    -------
    Diagnosis

    Raises
    ------
    RunError
        As `check`; also where there is nothing to diagnose, as of a frame run.

    Examples
    --------
    >>> seen = polarline.diagnose(polarline.simulate('ring_320'))
    >>> seen.rows_after <= seen.rows_before
    True
    """
    done = check(set, left, right, refine=refine, progress=progress, uncertainty=False)
    if done.diagnosis is None:
        raise RunError("the run has no row differences to diagnose", name="no_diagnosis", advice=_advice_on("no_diagnosis"),
                       check=done)
    return done.diagnosis


def report(checks: Union[Check, StrPath, Iterable[Union[Check, StrPath]]], path: StrPath, *, title: str = "",
           paths: bool = False, budget: int = 10_000_000, pictures: bool = True) -> None:
    """Writes the page of a check, of two to eight side by side, or of a fleet: one file of HTML.

    Parameters
    ----------
    checks : Check or path, or several of them
        Checks, or paths of their JSON documents. The first is what the others are compared with. Or the path of the
        results of a fleet, which `merge` wrote; of the arguments below only the title counts then.
    path : path
        Where the page goes.
    title : str
        Of the page; empty: the names of the sets.
    paths : bool
        Tell files by their paths, not only by their names.
    budget : int
        Bytes of the page's data, about.
    pictures : bool
        Show the pictures of the cameras.

    Raises
    ------
    InputError
        For no check, more than eight, a document that is none, and the results of a fleet beside others.
    OutputError
        Where the page can't be written.
    """
    several = [checks] if isinstance(checks, (Check, str, os.PathLike)) else list(checks)
    fleets = [each for each in several if not isinstance(each, Check) and _polarline.is_results_file(bytes_of(each))]
    if fleets and len(several) > 1:
        raise InputError(f"{os.fspath(fleets[0])}: the results of a fleet have a page of their own: nothing else goes with it")
    if fleets:
        write_whole(path, _polarline.fleet_page(bytes_of(fleets[0]), title=text("title", title)))
        return
    documents: List[Tuple[Union[str, bytes], Union[str, bytes]]] = []
    for each in several:
        if isinstance(each, Check):
            documents.append((each.to_json(), ""))
        else:
            documents.append(("", bytes_of(each)))
    write_whole(path, _polarline.report_page(documents, title=text("title", title), paths=flag("paths", paths),
                                            budget=a_whole("budget", budget, 0), pictures=flag("pictures", pictures)))


def _to_dict(self: Check) -> Dict[str, Any]:
    """The JSON document as dictionaries and lists."""
    return dict(json.loads(self.to_json()))


def _to_pandas(self: Check, *, points: bool = False) -> Any:
    """The figures or the dots as a table.

    Parameters
    ----------
    points : bool
        A row a dot of each pair, with the columns of `Points` and the pair's index, instead of a row a pair.

    Returns
    -------
    pandas.DataFrame
        A row a pair: names, state and figures in the units of `Figures.info`; entries of a list have a column each,
        ``tri_dis[0]``. What was not measured is not a number.

    Raises
    ------
    ImportError
        Where pandas is not installed.
    """
    try:
        pandas = importlib.import_module("pandas")
    except ModuleNotFoundError as error:
        if error.name != "pandas":
            raise
        raise ImportError("to_pandas needs pandas: sudo apt install python3-pandas", name="pandas") from None
    if points:
        frames = [pandas.DataFrame({"pair": pair.index, **{name: getattr(pair.points, name) for name in _COLUMNS}})
                  for pair in self.pairs]
        return pandas.concat(frames, ignore_index=True) if frames else pandas.DataFrame(columns=["pair", *_COLUMNS])
    rows = []
    for pair in self.pairs:
        row: Dict[str, object] = {"left": pair.left, "right": pair.right, "state": pair.state}
        for name in pair.figures:
            value = pair.figures[name]
            if isinstance(value, np.ndarray):
                row.update({f"{name}[{k}]": number for k, number in enumerate(value)})
            elif not pair.figures.info(name).is_list:
                row[name] = np.nan if value is None else value
        rows.append(row)
    index = pandas.Index([pair.index for pair in self.pairs], name="pair")
    return pandas.DataFrame(rows, index=index, columns=None if rows else ["left", "right", "state"])


_COLUMNS = ("id", "left_x", "left_y", "right_x", "right_y", "dy", "residual", "x", "y", "z", "rectified_left_x",
            "rectified_left_y", "rectified_right_x", "rectified_right_y")


def _report(self: Check, path: StrPath, *, title: str = "", paths: bool = False, pictures: bool = True) -> None:
    """Writes the page of the check: one file of HTML.

    Parameters
    ----------
    path : path
        Where the page goes.
    title : str
        Of the page; empty: the name of the set.
    paths : bool
        Tell files by their paths, not only by their names.
    pictures : bool
        Show the pictures of the cameras.

    Raises
    ------
    OutputError
        Where the page can't be written.
    """
    report(self, path, title=title, paths=paths, pictures=pictures)


def _repr_html(self: Check) -> str:
    """A small table and picture for notebooks."""
    return html_of(self)


def _add(name: str, value: object) -> None:
    """Gives `Check` what is easier said in Python."""
    if isinstance(value, FunctionType):
        value.__name__, value.__qualname__ = name, f"Check.{name}"
    setattr(Check, name, value)


_add("to_dict", _to_dict)
_add("to_pandas", _to_pandas)
_add("report", _report)
_add("_repr_html_", _repr_html)
_add("schema", property(lambda self: SCHEMA, doc="'polarline-check/1'."))
_add("judged", property(lambda self: 0 if self.verdict == "error" else len(self.limits),
                        doc="How many limits were judged; 0: the verdict says only that there are figures."))
_add("tool", property(lambda self: TOOL, doc="The `Tool` that made the check."))
