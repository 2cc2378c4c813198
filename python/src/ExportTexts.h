#pragma once

/// What `help()` tells of each exported function. Statuses, units and shapes are those of `PolarLinePrecision.h`.
namespace binding::text_of {

inline constexpr const char* kRunFiles = R"(Evaluates a set of stereo pictures on disk.

Parameters
----------
polarConfigPath : str
    Polar configuration: a file, or its text itself.
targetConfigPath : str
    Board and detector: a file, or the text of an .ini file itself.
calibrationPath : str
    Calibration, .json or .bin.
imageListPath : str
    Image list; result files go into its folder.

Returns
-------
status : int
    0; 8 without a finished pair; `polarline.explain` tells the others.
records : list of PolarResultRecord
    One a finished pair. Pixels, and the board's unit.

Raises
------
RuntimeError
    None for an argument, or what OpenCV throws.
)";

inline constexpr const char* kRunImages = R"(Evaluates a set of stereo pictures in memory.

Parameters
----------
polarConfigPath, targetConfigPath : str
    As for `CalPolarLinePrecision`.
calibration : ExportedCalibParams
    The cameras and, for all that compares with the board, its points.
images : sequence of two sequences of ndarray
    The left and the right pictures, in the order of the pairs: grey of shape (rows, columns), uint8 or uint16, or
    uint8 of shape (rows, columns, 3 or 4) as blue, green, red. They are not copied.
progress : callable, optional
    Called with 0.001, 0.002, 0.003, after each finished pair with per cent, and with 100; False ends the run.
resultFolder : str, optional
    Where result files go; None: none is written.

Returns
-------
status : int
    As of `CalPolarLinePrecision`; 35 when `progress` returned False.
records : list of PolarResultRecord
    One a finished pair. Pixels, and the board's unit.

Raises
------
Exception
    Whatever `progress` raises; RuntimeError as `CalPolarLinePrecision`.
)";

inline constexpr const char* kRunRectified = R"(Evaluates pictures on disk that were rectified outside the library.

Parameters
----------
polarConfigPath, targetConfigPath : str
    As for `CalPolarLinePrecision`.
rectified : RectifiedParams
    Geometry of the rectified pair (pixels; baseline in the board's unit), and the board's points.
imageListPath : str
    Image list; result files go into its folder.

Returns
-------
status : int
    As of `CalPolarLinePrecision`.
records : list of PolarResultRecord
    One a finished pair: row differences (pixels) and the point cloud (board's unit).
)";

inline constexpr const char* kTemperature =
    R"(Reads and checks the inputs for coefficients of temperature; computes nothing.

Parameters
----------
polarConfigPath, targetConfigPath, calibrationPath, imageListPath : str
    As for `CalPolarLinePrecision`.

Returns
-------
status : int
    0, or -1 (polar configuration), -2 (calibration), -3 (image list).
)";

inline constexpr const char* kReadCalibration = R"(Reads a calibration into a record; its board points stay.

Parameters
----------
path : str
    Calibration, .json or .bin.
calibration : ExportedCalibParams
    Is filled: pixels, radians, the board's unit; zeros where the file can't be read.

Returns
-------
status : int
    0, or 7 when there is no such file.
)";

inline constexpr const char* kReadImages = R"(Reads an image list and all its pictures.

Parameters
----------
path : str
    Image list: a header '#L R', then a left and a right file name a line.

Returns
-------
status : int
    0; 1 when the list is not right; 7 when there is no such file.
images : list of two lists of ndarray or None
    Left and right pictures, uint8 or uint16, shape (rows, columns) or (rows, columns, 3 or 4); None for a picture
    that can't be read.
)";

inline constexpr const char* kReadTables =
    R"(Reads the four tables of the polynomial model: 6 x 4 cells, 1920 x 1200 pixels.

Parameters
----------
folder : str
    Where the tables lie.
calibration : ExportedCalibParams
    Its tables are filled, 10 coefficients a cell.

Returns
-------
status : int
    0, or 1 when a table is missing.
)";

inline constexpr const char* kReadBoardReport = R"(Reads 42 points of a board from a report.

Parameters
----------
path : str
    The report, CSV.
second_layout : bool
    Which of its two layouts it has.

Returns
-------
status : int
    0, or 7 when there is no such file.
points : ndarray
    float32, shape (n, 3): x, y, z by id, in the report's unit.
)";

inline constexpr const char* kReadBoardList = R"(Reads the points of a board from a list, x y z a line.

Parameters
----------
path : str
    The list.

Returns
-------
points : ndarray
    float32, shape (n, 3), in the list's unit; (0, 3) when it can't be opened.
)";

inline constexpr const char* kReadBinary = R"(Reads a binary calibration file of one to a few cameras.

Parameters
----------
path : str
    The file.
options : int
    Must be 0.

Returns
-------
status : int
    0; 4096 without a path, 4097 for a wrong checksum, 4098 for a form or option that is not supported, or the
    system's errno.
calibration : MultiCalibration
    What the file holds: pixels, radians, the board's unit.
)";

inline constexpr const char* kLastError = R"(The text of the last failure; a success does not change it.

Returns
-------
text : str
    One blank before the first failure.
)";

inline constexpr const char* kVersion = R"(The version of the library.

Returns
-------
version : str
    As '1.3.3'.
)";

}  // namespace binding::text_of
