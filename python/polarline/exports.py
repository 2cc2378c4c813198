"""The library's own exported functions, one to one.

Names, arguments and statuses are those of ``PolarLinePrecision.h``. A record that the library fills is filled in
place; what it puts into a list comes back beside the status, as does a text that it copies into a buffer. Paths
are str, bytes or os.PathLike. The GIL is free meanwhile, and calls take turns with all others of the package.
"""

from __future__ import annotations

from ._polarline import (CalPolarLinePrecision, CalPolarLinePrecisionOutMat, CalRecificationPrecision,
                         CalTempCompensateCoeff, ExportedCalibParams, ExportedCameraCalib, GetPolarErrorInfo,
                         GetVersionPolarLinePrecision, LoadCalibrationParamsMulti, MultiCalibration,
                         MultiCalibrationEntry, PolarResultRecord, ReadBoardGTFromCSV, ReadBoardGTFromTxt,
                         ReadCalibImagelist, ReadCalibParams, ReadTxtPolyParams, RectifiedParams, TriPointRecord)

__all__ = [
    "CalPolarLinePrecision", "CalPolarLinePrecisionOutMat", "CalRecificationPrecision", "CalTempCompensateCoeff",
    "ExportedCalibParams", "ExportedCameraCalib", "GetPolarErrorInfo", "GetVersionPolarLinePrecision",
    "LoadCalibrationParamsMulti", "MultiCalibration", "MultiCalibrationEntry", "PolarResultRecord", "ReadBoardGTFromCSV",
    "ReadBoardGTFromTxt", "ReadCalibImagelist", "ReadCalibParams", "ReadTxtPolyParams", "RectifiedParams",
    "TriPointRecord",
]
