"""The alignment of stereo infra-red camera pairs, judged from pictures of a board of dots.

    >>> result = polarline.check(polarline.simulate('ring_320', pairs=1))
    >>> result.verdict
    'pass'

`init` makes a set of pictures, a board and a calibration; `check` judges it; `batch` judges many; `detect` looks at one
picture; `simulate` renders sets with known truth; `polarline.exports` has the library's own functions one to one.
"""

from __future__ import annotations

import collections.abc as _abc
import os as _os

from . import _polarline, exports
from ._check import TOOL as _TOOL
from ._check import Tool, check, diagnose, report
from ._errors import Error, InputError, OutputError, RunError
from ._fleet import batch, make_store, merge
from ._making import import_calibration, init
from ._pieces import board, detect, explain, read_picture, refine, scene_file, simulate, truth_of
from ._polarline import (BatchOutcome, BatchResult, BoardInfo, Calibration, Camera, CameraNumbers, Cameras, Cause,
                         Check, CheckedSet, ClassTally, ContourTally, Correction, DetectedBoard, Detection,
                         DetectionStage, Diagnosis, DotCounts, Ellipse, Explanation, Extrinsics, Figure, FigureSummary,
                         Figures, ImportedCalibration, Input, LimitResult, MadePair, MadeSet, MergeResult, Pair,
                         PictureQuality, Points, Preset, PrintedBoard, Quality, Reason, Refined, RefinedCounts,
                         RefinedDots, RefinedPoints, RefinedSummary, SeenBoard, Simulated, SimulatedSet, Status,
                         Summary, Target, TrueFigures, Uncertainty, UnreadableDocument, Warning, board_kinds,
                         calibration_formats, limit_names, main_figures, presets, setting_keys)
from ._set import Set
from ._values import equip as _equip

__version__ = _TOOL.version

__all__ = [
    "BatchOutcome", "BatchResult", "BoardInfo", "Calibration", "Camera", "CameraNumbers", "Cameras", "Cause", "Check",
    "CheckedSet", "ClassTally", "ContourTally", "Correction", "DetectedBoard", "Detection", "DetectionStage",
    "Diagnosis", "DotCounts", "Ellipse", "Error", "Explanation", "Extrinsics", "Figure", "FigureSummary", "Figures",
    "ImportedCalibration", "Input", "InputError", "LimitResult", "MadePair", "MadeSet", "MergeResult", "OutputError",
    "Pair", "PictureQuality", "Points", "Preset", "PrintedBoard", "Quality", "Reason", "Refined", "RefinedCounts",
    "RefinedDots", "RefinedPoints", "RefinedSummary", "RunError", "SeenBoard", "Set", "Simulated", "SimulatedSet",
    "Status", "Summary", "Target", "Tool", "TrueFigures", "Uncertainty", "UnreadableDocument", "Warning", "batch",
    "board", "board_kinds", "calibration_formats", "check", "detect", "diagnose", "explain", "exports",
    "import_calibration", "init", "limit_names", "main_figures", "make_store", "merge", "presets", "read_picture",
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
