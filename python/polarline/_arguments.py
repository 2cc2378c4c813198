"""What callers give, brought into the form that the native module takes, or refused in words."""

from __future__ import annotations

import operator
import os
from typing import Any, Callable, Iterable, List, Mapping, Optional, Sequence, Tuple, Union

import numpy as np

from ._errors import InputError

Progress = Callable[[int, int], object]
Pictures = Sequence["np.ndarray[Any, Any]"]
Lines = Union[str, Iterable[str]]


def found(value: object) -> str:
    """A value as a message names it."""
    if isinstance(value, np.ndarray):
        return f"{value.dtype} of shape {value.shape}"
    return f"{value!r}" if isinstance(value, (bool, int, float)) else type(value).__name__


def refuse(name: str, value: object, wanted: str) -> TypeError:
    return TypeError(f"{name}: found {found(value)}; {wanted}")


def pictures_of(name: str, given: Any) -> Optional[List[Any]]:
    """One side's pictures; a single one, of which each row would pass for a picture, is told apart."""
    if given is None:
        return None
    wanted = "a sequence of pictures was wanted, one a pair"
    if isinstance(given, np.ndarray) and (given.ndim < 3 or (given.ndim == 3 and given.shape[2] in (3, 4))):
        raise refuse(name, given, f"{wanted}; [picture] is a sequence of one")
    if isinstance(given, (str, bytes, os.PathLike)) or not isinstance(given, Iterable):
        raise refuse(name, given, wanted)
    return list(given)


def lines_of(name: str, given: Lines, wanted: str) -> List[str]:
    """One text, or several."""
    if isinstance(given, str):
        return [given]
    if isinstance(given, Iterable) and not isinstance(given, Mapping):
        lines = list(given)
        if all(isinstance(line, str) for line in lines):
            return lines
    raise refuse(name, given, f"{wanted}, or a sequence of such, was wanted")


def settings_of(given: Union[Mapping[str, object], Lines]) -> List[str]:
    """Lines of a polar configuration; a switch may be True or False."""
    if isinstance(given, Mapping):
        return [f"{key}={int(value) if isinstance(value, (bool, np.bool_)) else value}" for key, value in given.items()]
    return lines_of("settings", given, "a mapping, or a text such as 'crop=1'")


def flag(name: str, value: object) -> bool:
    if isinstance(value, (bool, np.bool_, int)):
        return bool(value)
    raise refuse(name, value, "True or False was wanted")


def whole(name: str, value: Any, least: Optional[int] = None) -> Optional[int]:
    """A whole number, or None."""
    if value is None:
        return None
    try:
        number = operator.index(value)
    except TypeError:
        raise refuse(name, value, "a whole number was wanted") from None
    if least is not None and number < least:
        raise InputError(f"{name}: found {number}, wanted a whole number from {least}")
    return number


def a_whole(name: str, value: Any, least: Optional[int] = None) -> int:
    """A whole number; None is none."""
    given = whole(name, value, least)
    if given is None:
        raise refuse(name, value, "a whole number was wanted")
    return given


def number(name: str, value: Any) -> float:
    """Whatever is a number by itself; a text that tells one is none."""
    try:
        if isinstance(value, (str, bytes)):
            raise TypeError
        return float(value)
    except (TypeError, ValueError):
        raise refuse(name, value, "a number was wanted") from None


def text(name: str, value: Any) -> str:
    if isinstance(value, str):
        return value
    raise refuse(name, value, "a text was wanted")


def two(name: str, value: Any, wanted: str) -> Optional[Tuple[int, int]]:
    """Two whole numbers from 0, or None."""
    if value is None:
        return None
    try:
        first, last = (operator.index(each) for each in value)
    except (TypeError, ValueError):
        first = last = -1
    if first < 0 or last < 0:
        raise TypeError(f"{name}: found {value!r}; {wanted} was wanted, two whole numbers from 0")
    return first, last


def progress_of(value: Optional[Progress]) -> Optional[Progress]:
    if value is None or callable(value):
        return value
    raise refuse("progress", value, "a callable was wanted")
