"""One picture, one board, one calibration, one scene."""

from __future__ import annotations

import json
import os
from typing import Any, Dict, Iterable, Optional, Sequence, Tuple, Union, overload

import numpy as np

from . import _polarline
from ._arguments import Progress, a_whole, flag, number, progress_of, refuse, text, two, whole
from ._errors import InputError
from ._files import StrPath, bytes_of, write_whole
from ._polarline import (Calibration, Camera, Detection, Explanation, PrintedBoard, RefinedDots, Simulated,
                         SimulatedSet, Target, TrueFigures, board_kinds)
from ._values import CALIBRATION, CAMERA, calibration_of, camera_of, values_of

Picture = "np.ndarray[Any, Any]"


def read_picture(path: StrPath) -> "np.ndarray[Any, Any]":
    """Reads a picture with its pixels as they are stored.

    Parameters
    ----------
    path : path
        A picture.

    Returns
    -------
    ndarray
        uint8 or uint16, of shape (rows, columns), or (rows, columns, 3 or 4) in the order blue, green, red. Colours
        of uint16 are read, but no other function takes them.

    Raises
    ------
    InputError
        For a path that is no picture.
    """
    return _polarline.read_picture(bytes_of(path))


def _is_description(text: object) -> bool:
    """Whether a text is a board in words, as `Target` takes it."""
    return isinstance(text, str) and "\n" not in text and text.partition(":")[0] in board_kinds()


def _target_of(target: Union[Target, StrPath]) -> Union[str, bytes]:
    """A target configuration as the library takes it: the text or the path."""
    if isinstance(target, str) and _is_description(target):
        return Target(target).to_ini()
    if isinstance(target, Target):
        return target.to_ini()
    if isinstance(target, (str, os.PathLike)):
        return bytes_of(target)
    raise refuse("target", target, "a Target, a path or a text was wanted")


def detect(image: "Union[np.ndarray[Any, Any], StrPath]", target: Union[Target, StrPath]) -> Detection:
    """Finds and numbers the dots of a board in one picture, exactly as a run does.

    Parameters
    ----------
    image : ndarray or path
        Grey of shape (rows, columns), uint8 or uint16, or uint8 of shape (rows, columns, 3 or 4) in the order blue,
        green, red.
    target : Target or path
        The board, also in words, such as ``'rings-small:17x15:14'``, or a target configuration (ini, json, yml,
        yaml, xml) or its text.

    Returns
    -------
    Detection
        `Detection.found` tells whether dots were numbered, `Detection.text` what else.

    Raises
    ------
    InputError
        For a target that can't be used and a path that is no picture.
    TypeError
        For what is no picture.

    Examples
    --------
    >>> seen = polarline.simulate('ring_320', pairs=1)
    >>> found = polarline.detect(seen.left[0], seen.target)
    >>> found.found, found.id.dtype, found.x.shape == found.id.shape
    (True, dtype('int32'), True)
    """
    picture = read_picture(image) if isinstance(image, (str, os.PathLike)) else image
    return _polarline.detect(picture, _target_of(target))


def refine(image: "Union[np.ndarray[Any, Any], StrPath]", target: Union[Target, StrPath], camera: Camera, *,
           type: int = 0, detection: Optional[Detection] = None) -> RefinedDots:
    """Refines the centres of the dots of one picture, several times nearer to the truth, with their covariances.

    Parameters
    ----------
    image : ndarray or path
        As for `detect`.
    target : Target or path
        The board, whose pose tells the perspective of its circles.
    camera : Camera
        The camera that took the picture, `Calibration.left` or `Calibration.right`.
    type : int
        Of the lens, `Calibration.type`.
    detection : Detection, optional
        What was seen in the picture; without it, it is searched.

    Returns
    -------
    RefinedDots
        One entry a dot of the detection, in its order.

    Raises
    ------
    InputError
        For a target or a type that can't be used, and a detection of a picture of another size.
    TypeError
        For what is no picture, no camera or no detection.
    """
    if not isinstance(camera, Camera):
        raise refuse("camera", camera, "a Camera was wanted, such as Calibration.left")
    if detection is not None and not isinstance(detection, Detection):
        raise refuse("detection", detection, "a Detection was wanted")
    lens = a_whole("type", type)
    picture = read_picture(image) if isinstance(image, (str, os.PathLike)) else image
    board_text = _target_of(target)
    seen = detection if detection is not None else _polarline.detect(picture, board_text)
    return _polarline.refine(picture, seen, board_text, camera, lens)


_PAPERS = ("A4", "A3", "A2", "A1", "fit")


def board(target: Union[Target, str], path: Optional[StrPath] = None, *, format: str = "", paper: str = "fit", title: str = "",
          dpi: float = 300.0) -> PrintedBoard:
    """Draws a board in true size, to print; a board unit is a millimetre.

    Parameters
    ----------
    target : Target or str
        The board, also in words, such as ``'rings-small:17x15:14'``.
    path : path, optional
        File to write. Without it, `PrintedBoard.data` has its bytes.
    format : str
        'svg', 'pdf' or 'png'; empty: by the path's ending, without a path 'svg'.
    paper : str
        'A4', 'A3', 'A2', 'A1', or 'fit' for the board's own size.
    title : str
        Printed below the ruler; empty: the board in words.
    dpi : float
        Dots per inch of a PNG.

    Returns
    -------
    PrintedBoard

    Raises
    ------
    InputError
        For a sheet that is too small, and what else can't be printed.
    OutputError
        Where the file can't be written.

    Examples
    --------
    >>> polarline.board(polarline.Target('rings-small:17x15:14'), paper='A3').paper
    'A3'
    """
    if not isinstance(target, (Target, str)):
        raise refuse("target", target, "a Target or a board in words was wanted; Target.read reads a file")
    form = format or ("svg" if path is None else os.path.splitext(os.fspath(path))[1][1:].lower())
    if form not in ("svg", "pdf", "png"):
        raise InputError(f"{format or path}: wanted svg, pdf or png, as `format` or the ending of the path")
    if paper not in _PAPERS:
        raise InputError(f"paper: found {paper}, wanted one of {', '.join(_PAPERS)}")
    printed = _polarline.print_board(Target(target) if isinstance(target, str) else target, format=form, paper=paper,
                                     title=text("title", title), dpi=number("dpi", dpi))
    if path is not None:
        write_whole(path, printed.data)
    return printed


@overload
def simulate(scene: StrPath, folder: None = None, *, pairs: Optional[int] = None, seed: Optional[int] = None,
             noise: Optional[float] = None, force: bool = False, progress: Optional[Progress] = None) -> Simulated: ...


@overload
def simulate(scene: StrPath, folder: StrPath, *, pairs: Optional[int] = None, seed: Optional[int] = None,
             noise: Optional[float] = None, force: bool = False, progress: Optional[Progress] = None) -> SimulatedSet: ...


def simulate(scene: StrPath, folder: Optional[StrPath] = None, *, pairs: Optional[int] = None,
             seed: Optional[int] = None, noise: Optional[float] = None, force: bool = False,
             progress: Optional[Progress] = None) -> Union[Simulated, SimulatedSet]:
    """Renders a set whose truth is known to the last digit.

    Parameters
    ----------
    scene : str or path
        The name of a preset (`presets`) or the path of a scene file.
    folder : path, optional
        Where the set goes; without it, it stays in memory.
    pairs : int, optional
        Pairs of pictures, 1 to 1000.
    seed : int, optional
        Of the noise. The same seed gives the same pictures to the byte.
    noise : float, optional
        Read noise, greys of an 8 bit picture; 0 takes all noise away.
    force : bool
        Write into a folder that is not empty.
    progress : callable, optional
        Called with the pairs done and all pairs. What it raises ends the simulation and comes back.

    Returns
    -------
    Simulated or SimulatedSet
        In memory: arrays, texts and truth. In a folder: what was written.

    Raises
    ------
    InputError
        For a scene that can't be used, and a folder that is not empty.
    OutputError
        Where a file can't be written.

    Examples
    --------
    >>> seen = polarline.simulate('ring_320', pairs=1)
    >>> seen.left[0].shape, seen.left[0].dtype
    ((256, 320), dtype('uint8'))
    """
    options: Dict[str, Any] = {**_drawn(pairs, seed, noise), "progress": progress_of(progress)}
    if folder is None:
        return _polarline.simulate_images(bytes_of(scene), **options)
    return _polarline.simulate_set(bytes_of(scene), bytes_of(folder), force=flag("force", force), **options)


def _drawn(pairs: Optional[int], seed: Optional[int], noise: Optional[float]) -> Dict[str, Any]:
    """What takes the place of the scene's own."""
    return {"pairs": whole("pairs", pairs), "seed": whole("seed", seed, 0), 
            "noise": None if noise is None else number("noise", noise)}


def scene_file(scene: StrPath, *, pairs: Optional[int] = None, seed: Optional[int] = None,
               noise: Optional[float] = None) -> str:
    """A preset or scene file as a scene file that tells everything, JSON, to change it.

    Parameters
    ----------
    scene, pairs, seed, noise
        As for `simulate`.

    Returns
    -------
    str

    Examples
    --------
    >>> import json
    >>> json.loads(polarline.scene_file('ring_320', seed=7))['seed']
    7
    """
    return _polarline.scene_file(bytes_of(scene), **_drawn(pairs, seed, noise))


def truth_of(folder: StrPath) -> Tuple[TrueFigures, ...]:
    """The true figures of a simulated set, one a pair.

    Parameters
    ----------
    folder : path
        Of a set that `simulate` wrote.

    Returns
    -------
    tuple of TrueFigures

    Raises
    ------
    InputError
        For a folder without a truth.
    """
    return _polarline.truth_of(bytes_of(folder))


def explain(code: Union[int, str]) -> Tuple[Explanation, ...]:
    """All that a status, a warning, an exit code or the name of a figure may mean.

    Parameters
    ----------
    code : int or str
        Such as -9, 'too_few_shared' or 'dy_means'.

    Returns
    -------
    tuple of Explanation
        Empty for what nobody says.

    Examples
    --------
    >>> polarline.explain('dy_means')[0].unit
    'pixels'
    """
    return _polarline.explain(str(code))


def _member_of(name: str, value: Any) -> Any:
    """A new value for a member of a calibration or a camera, as its constructor takes it."""
    if name in ("left", "right"):
        if not isinstance(value, Camera):
            raise refuse(name, value, "a Camera was wanted")
        return value
    if name == "type":
        return a_whole(name, value)
    if name == "size":
        if value is None:
            raise refuse(name, value, "(columns, rows) was wanted, two whole numbers from 0")
        return two(name, value, "(columns, rows)")
    if name == "k":
        if isinstance(value, (str, bytes)) or not isinstance(value, Iterable):
            raise refuse(name, value, "six numbers were wanted")
        coefficients = [number(f"k[{place}]", each) for place, each in enumerate(value)]
        if len(coefficients) != 6:
            raise TypeError(f"k: found {len(coefficients)} numbers; six were wanted")
        return coefficients
    return number(name, value)


def _replace(self: Calibration, **changes: Any) -> Calibration:
    """The same calibration with other values for some of its members.

    Parameters
    ----------
    **changes
        Members of `Calibration` and their new values.

    Returns
    -------
    Calibration
    """
    values = values_of(self, CALIBRATION)
    unknown = sorted(set(changes) - set(values))
    if unknown:
        raise TypeError(f"found {', '.join(unknown)}; wanted {', '.join(values)}")
    return calibration_of({**values, **{name: _member_of(name, value) for name, value in changes.items()}})


def _replace_camera(self: Camera, **changes: Any) -> Camera:
    """The same camera with other values for some of its members.

    Parameters
    ----------
    **changes
        Members of `Camera` and their new values.

    Returns
    -------
    Camera
    """
    values = values_of(self, CAMERA)
    unknown = sorted(set(changes) - set(values))
    if unknown:
        raise TypeError(f"found {', '.join(unknown)}; wanted {', '.join(values)}")
    return camera_of({**values, **{name: _member_of(name, value) for name, value in changes.items()}})


def _truth(self: Simulated) -> Dict[str, Any]:
    return dict(json.loads(self.truth_json))


setattr(Calibration, "replace", _replace)
setattr(Camera, "replace", _replace_camera)
setattr(Simulated, "truth", property(_truth, doc="The truth, as truth.json has it."))
