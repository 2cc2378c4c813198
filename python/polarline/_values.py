"""How the package's objects are shown, copied, compared and sent to other processes."""

from __future__ import annotations

from typing import Any, Callable, Dict, Iterable, List, Sequence, Tuple

import numpy as np
from numpy.typing import NDArray

from . import _polarline
from ._polarline import Calibration, Camera, Check, Figures, Simulated, Target

LONGEST_TEXT = 120


def verdict_of(check: Check) -> str:
    """The verdict and why, in the words of this package."""
    if check.verdict == "pass" and not check.limits:
        return _polarline.verdict_text(check).replace("--limit '", "limits='")
    return _polarline.verdict_text(check)


def _value_text(value: object) -> str:
    """A member as an object's text has room for it; empty for one that is shown by itself."""
    if isinstance(value, float):
        return f"{value:.6g}"
    if isinstance(value, str):
        short = value if len(value) <= LONGEST_TEXT else value[: LONGEST_TEXT - 3] + "..."
        return "" if "\n" in value else repr(short)
    if isinstance(value, np.ndarray):
        return f"[{', '.join(f'{each:.6g}' for each in value)}]" if value.ndim == 1 and value.size <= 8 else ""
    if isinstance(value, tuple) and value and all(isinstance(each, (int, float)) for each in value):
        return f"({', '.join(f'{each:.6g}' for each in value)})"
    return repr(value) if value is None or isinstance(value, (bool, int)) else ""


def _members(kind: type) -> List[str]:
    """Names of the properties of a class and of those it is derived from."""
    names: Dict[str, None] = {}
    for base in reversed(kind.__mro__):
        names.update({name: None for name, member in vars(base).items() if isinstance(member, property)})
    return list(names)


def _line(self: object, members: Iterable[Tuple[str, object]]) -> str:
    texts = [f"{name}={text}" for name, text in ((name, _value_text(value)) for name, value in members) if text]
    return f"<{' '.join([f'polarline.{type(self).__name__}', *texts])}>"


def _repr(self: Any) -> str:
    return _line(self, ((name, getattr(self, name)) for name in _members(type(self))))


def _repr_counted(self: Any) -> str:
    return f"<polarline.{type(self).__name__} of {len(self)} dots>"


def _repr_figures(self: Figures) -> str:
    return _line(self, ((name, value) for name, value in self.items() if value is not None))


def _repr_simulated(self: Simulated) -> str:
    return f"<polarline.Simulated {self.name!r}: {len(self.left)} pairs>"


def _repr_check(self: Check) -> str:
    return f"<polarline.Check {self.set.name!r}: {verdict_of(self)}>"


def _itself(self: Any, _memo: object = None) -> Any:
    """What can't be changed is its own copy."""
    return self


def _stays(self: Any) -> Any:
    raise TypeError(f"a polarline.{type(self).__name__} stays in the process that made it; send the numbers you need of it, "
                    "or Check.to_dict()")


CAMERA = ("fx", "fy", "cx", "cy", "k", "p1", "p2", "size")
CALIBRATION = ("left", "right", "type", "rx", "ry", "rz", "tx", "ty", "tz")


def values_of(self: Any, names: Sequence[str]) -> Dict[str, Any]:
    return {name: getattr(self, name) for name in names}


def camera_of(values: Dict[str, Any]) -> Camera:
    return Camera(**values)


def calibration_of(values: Dict[str, Any]) -> Calibration:
    values = dict(values)
    return Calibration(values.pop("left"), values.pop("right"), **values)


def _compare(kind: type, key: Callable[[Any], Any]) -> None:
    """Equal are those of equal values."""
    setattr(kind, "__eq__", lambda self, other: key(self) == key(other) if isinstance(other, kind) else NotImplemented)
    setattr(kind, "__hash__", lambda self: hash(key(self)))


def _numbers(value: object) -> "NDArray[np.float64]":
    return np.asarray(np.nan if value is None else value, np.float64) + 0.0  # -0 is 0.


def _figures_equal(self: Figures, other: object) -> Any:
    if not isinstance(other, Figures):
        return NotImplemented
    return all(_numbers(self[name]).tobytes() == _numbers(other[name]).tobytes() for name in self)


def _add_to(kind: type) -> None:
    """Gives a class what is easier said in Python, unless it has its own."""
    if "__repr__" not in vars(kind):
        setattr(kind, "__repr__", _repr_counted if issubclass(kind, (_polarline.Points, _polarline.RefinedDots)) else _repr)
    setattr(kind, "__copy__", _itself)
    setattr(kind, "__deepcopy__", _itself)
    setattr(kind, "__reduce__", _stays)


def equip(kinds: Iterable[type]) -> None:
    """The classes of the native module that can't be changed."""
    setattr(Figures, "__repr__", _repr_figures)
    setattr(Simulated, "__repr__", _repr_simulated)
    setattr(Check, "__repr__", _repr_check)
    for kind in kinds:
        _add_to(kind)
    _compare(Target, lambda self: self.text)
    _compare(Camera, lambda self: tuple(values_of(self, CAMERA).values()))
    _compare(Calibration, lambda self: tuple(values_of(self, CALIBRATION).values()))
    setattr(Figures, "__eq__", _figures_equal)
    setattr(Figures, "__hash__", None)
    setattr(Target, "__reduce__", lambda self: (Target, (self.text,)))
    setattr(Camera, "__reduce__", lambda self: (camera_of, (values_of(self, CAMERA),)))
    setattr(Calibration, "__reduce__", lambda self: (calibration_of, (values_of(self, CALIBRATION),)))
