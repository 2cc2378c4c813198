"""A set: the files that a check reads."""

from __future__ import annotations

import contextlib
import os
import tempfile
from dataclasses import dataclass, fields
from typing import Dict, Iterator, Optional, Union

from ._arguments import refuse
from ._files import StrPath, bytes_of
from ._polarline import Calibration, ImportedCalibration, Simulated, Target


@dataclass(frozen=True)
class Set:
    """The files of a set.

    A file that is not named is the folder's own: ``polar.txt``, ``target.ini`` (or json, yml, yaml, xml),
    ``calib.json`` (or bin), ``list.txt`` and, where they are there, ``board_gt.txt``, ``limits.txt``,
    ``rectified.txt``. A check needs the polar configuration, the target and the cameras (`calibration` or
    `rectified`); a list is not needed where pictures are given as arrays.

    Each attribute is what was given, and None where nothing was.

    Attributes
    ----------
    folder : path, optional
        Where files that are not named are looked for.
    polar : path, optional
        Polar configuration: switches, limits of the pictures in pixels, reference points in board units.
    target : path or Target, optional
        Board and detector; its steps are in board units.
    calibration : path or Calibration, optional
        The cameras: lenses in pixels, the pose in radians and board units.
    list : path, optional
        Image list, the names of two pictures a line, one pair or more.
    board : path, optional
        True positions of the dots, x y z a line by rising id, board units.
    limits : path, optional
        One limit a line, such as ``dy_means<=0.1``, each in the unit of its figure.
    rectified : path, optional
        Geometry of pairs that were rectified elsewhere: focal length (pixels, above 0), baseline (board units), principal
        point and disparity offset (pixels) on one line.

    Examples
    --------
    >>> polarline.Set("my_set", calibration="new.json").calibration
    'new.json'
    """

    folder: Optional[StrPath] = None
    polar: Optional[StrPath] = None
    target: Union[StrPath, Target, None] = None
    calibration: Union[StrPath, Calibration, None] = None
    list: Optional[StrPath] = None
    board: Optional[StrPath] = None
    limits: Optional[StrPath] = None
    rectified: Optional[StrPath] = None


SetLike = Union[StrPath, Set, Simulated]


def _write(folder: str, name: str, content: Union[str, bytes]) -> bytes:
    path = os.path.join(folder, name)
    with open(path, "wb") as file:
        file.write(content.encode("utf-8", "surrogateescape") if isinstance(content, str) else content)
    return bytes_of(path)


def _of_simulated(simulated: Simulated, folder: str) -> Dict[str, bytes]:
    """The texts of a simulated set as the files of a folder."""
    own = os.path.join(folder, simulated.name)
    os.mkdir(own)
    _write(own, "polar.txt", simulated.polar)
    _write(own, "target.ini", simulated.target)
    if simulated.calibration:
        _write(own, "calib.json", simulated.calibration)
    else:
        _write(own, "calib.bin", simulated.calibration_binary)
    _write(own, "board_gt.txt", simulated.board)
    if simulated.rectified:
        _write(own, "rectified.txt", simulated.rectified)
    return {"folder": bytes_of(own)}


def _file_of(role: str, value: object, folder: str) -> bytes:
    if isinstance(value, Target):
        return _write(folder, "target.ini", value.to_ini())
    if isinstance(value, Calibration):
        return _write(folder, "calib.json", value.to_json())
    if isinstance(value, (str, os.PathLike)):
        return bytes_of(value)
    if isinstance(value, ImportedCalibration):
        raise refuse(role, value, "its member `calibration` was wanted")
    in_memory = {"target": "a Target or ", "calibration": "a Calibration or "}.get(role, "")
    raise refuse(role, value, f"{in_memory}a path was wanted")


@contextlib.contextmanager
def files_of(given: SetLike) -> Iterator[Dict[str, bytes]]:
    """The paths of a set by role; what is in memory lies in a folder of its own meanwhile."""
    if isinstance(given, (str, os.PathLike)):
        yield {"folder": bytes_of(given)}
        return
    if not isinstance(given, (Set, Simulated)):
        raise TypeError(f"set: found {type(given).__name__}; a path, a Set or a Simulated was wanted")
    with tempfile.TemporaryDirectory(prefix="polarline-") as folder:
        if isinstance(given, Simulated):
            yield _of_simulated(given, folder)
            return
        named = {field.name: getattr(given, field.name) for field in fields(given)}
        yield {role: _file_of(role, value, folder) for role, value in named.items() if value is not None}
