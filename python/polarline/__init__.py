"""The alignment of stereo infra-red camera pairs, judged from pictures of a board of dots.

    >>> result = polarline.check(polarline.simulate('ring_320', pairs=1))
    >>> result.verdict
    'pass'

`check` judges a set; `detect` looks at one picture; `simulate` renders sets with known truth; `polarline.exports`
has the library's own functions one to one.
"""

from __future__ import annotations

import collections.abc as _abc
import os as _os

from . import _polarline, exports
from ._check import TOOL as _TOOL
from ._check import Tool, check, diagnose, report
from ._errors import Error, InputError, OutputError, RunError
from ._pieces import board, detect, explain, import_calibration, read_picture, refine, scene_file, simulate, truth_of
from ._polarline import (BoardInfo, Calibration, Camera, CameraNumbers, Cameras, Cause, Check, CheckedSet, ClassTally,
                         ContourTally, Correction, DetectedBoard, Detection, DetectionStage, Diagnosis, DotCounts,
                         Ellipse, Explanation, Extrinsics, Figure, Figures, FigureSummary, ImportedCalibration, Input,
                         LimitResult, Pair, PictureQuality, Points, Preset, PrintedBoard, Quality, Reason, Refined,
                         RefinedDots, RefinedPoints, Simulated, SimulatedSet, Status, Summary, Target, TrueFigures, Uncertainty,
                         Warning, board_kinds, calibration_formats, limit_names, main_figures, presets, setting_keys)
from ._set import Set
from ._values import equip as _equip

__version__ = _TOOL.version

__all__ = [
    "BoardInfo", "Calibration", "Camera", "CameraNumbers", "Cameras", "Cause", "Check", "CheckedSet", "ClassTally",
    "ContourTally", "Correction", "DetectedBoard", "Detection", "DetectionStage", "Diagnosis", "DotCounts", "Ellipse",
    "Error", "Explanation", "Extrinsics", "Figure", "FigureSummary", "Figures", "ImportedCalibration", "Input",
    "InputError", "LimitResult", "OutputError", "Pair", "PictureQuality", "Points", "Preset", "PrintedBoard", "Quality",
    "Reason", "Refined", "RefinedDots", "RefinedPoints", "RunError", "Set", "Simulated", "SimulatedSet", "Status", "Summary", "Target",
    "Tool", "TrueFigures", "Uncertainty", "Warning", "board", "board_kinds", "calibration_formats", "check", "detect",
    "diagnose", "explain", "exports", "import_calibration", "limit_names", "main_figures", "presets", "read_picture",
    "refine", "report", "scene_file", "setting_keys", "simulate", "truth_of",
]

_abc.Mapping.register(Figures)
for _name in ("get", "items", "values"):
    setattr(Figures, _name, getattr(_abc.Mapping, _name))
_equip(kind for kind in vars(_polarline).values()
       if isinstance(kind, type) and not hasattr(exports, kind.__name__))
if hasattr(_os, "register_at_fork"):
    _os.register_at_fork(after_in_child=_polarline.forget_turns)

for _name in __all__:  # They are this package's, wherever they are made.
    _member = globals()[_name]
    if isinstance(_member, type) and _member.__module__.startswith("polarline."):
        _member.__module__ = "polarline"
del _name, _member
