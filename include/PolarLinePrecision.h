#pragma once

/// @file
/// The exported functions of PolarLinePrecision and the records that cross its boundary.
///
/// The names are undecorated, the content is C++: a caller is built against the same standard library and OpenCV.
/// Each call stands alone; only the text of the last failure survives it. Two calls may not overlap. Exceptions of
/// OpenCV and of the standard library pass through to the caller. Every function throws `std::logic_error` for a null
/// argument, before any work, unless its text says otherwise. Paths are narrow strings; "\\" and, where the system
/// has it, "/" separate folders, so that on such a system a file whose name holds a backslash cannot be reached.

#include <cstdint>
#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "PolarLinePrecision/ProgressCallback.h"
#include "PolarLinePrecision/ResultRecords.h"
#include "PolarLinePrecision/Status.h"

#if defined(_WIN32)
#if defined(PolarLinePrecision_EXPORTS)
#define POLARLINEPRECISION_API __declspec(dllexport)
#else
#define POLARLINEPRECISION_API __declspec(dllimport)
#endif
#else
#define POLARLINEPRECISION_API __attribute__((visibility("default")))
#endif

extern "C" {

/// Evaluates a set of stereo images on disk.
///
/// Reads the polar configuration, the calibration and the image list, walks the pairs through every evaluation that the
/// configuration switches on, and writes the result files into the folder of the image list.
/// @param polarConfigPath   Polar configuration: a file of `key: value` lines, or such text itself.
/// @param targetConfigPath  Board and detector: a JSON, YAML or XML document, a `.ini` file of `key: value` lines, or
/// such text itself.
/// @param calibrationPath   Calibration, `.json` or `.bin`.
/// @param imageListPath     Image list: a header `#L R`, then a left and a right file name a line, relative to the
/// list.
/// @param results           Gets one record for each finished pair; untouched unless at least one was finished.
/// @return 0, 8 without a finished pair, or another value of `polar_status`; the text of a failure is at
/// `GetPolarErrorInfo`.
/// @throws std::logic_error for a null argument, before any work; what OpenCV and the detector's configuration throw
/// passes through.
POLARLINEPRECISION_API std::int32_t CalPolarLinePrecision(const char* polarConfigPath, const char* targetConfigPath,
                                                          const char* calibrationPath, const char* imageListPath,
                                                          std::vector<PolarResultRecord>* results);

/// The same on images and a calibration in memory; with the key `frame_work` each pair gets the frame evaluation
/// instead.
/// @param calibration   Cameras and, for every step that compares with the board, the board points.
/// @param images        Exactly two lists, left and right; the pixels are read only.
/// @param progress      May be null. Called with 0.001, 0.002, 0.003, after each finished pair, and with 100; an empty
/// function throws
///                      `std::bad_function_call`.
/// @param resultFolder  Where result files go; null or empty: none is written.
/// @return As `CalPolarLinePrecision`; 35 when `progress` returned false (at 100 the results are filled all the same).
POLARLINEPRECISION_API std::int32_t CalPolarLinePrecisionOutMat(
    const char* polarConfigPath, const char* targetConfigPath, ExportedCalibParams calibration, ImagePairList images,
    std::vector<PolarResultRecord>* results, const ProgressCallback* progress, const char* resultFolder);

/// Evaluates images on disk that were rectified outside the library: row differences and point cloud.
/// @param rectified  Geometry of the rectified pair and the board points.
/// @return As `CalPolarLinePrecision`.
POLARLINEPRECISION_API std::int32_t CalRecificationPrecision(const char* polarConfigPath, const char* targetConfigPath,
                                                             RectifiedParams rectified, const char* imageListPath,
                                                             std::vector<PolarResultRecord>* results);

/// Reads and checks the inputs for temperature compensation coefficients; there is no model for them yet, so nothing is
/// computed or written.
/// @return 0, -1 (polar configuration), -2 (calibration) or -3 (image list).
POLARLINEPRECISION_API std::int32_t CalTempCompensateCoeff(const char* polarConfigPath, const char* targetConfigPath,
                                                           const char* calibrationPath, const char* imageListPath);

/// Reads a calibration (`.json` or `.bin`) into the caller's record; its board points stay. A calibration that cannot
/// be read gives zeros.
/// @return 0, or 7 when the path does not exist (which is printed).
/// @throws std::filesystem::filesystem_error when the path's status cannot be told; OpenCV's exception for a malformed
/// document.
POLARLINEPRECISION_API std::int32_t ReadCalibParams(std::string path, ExportedCalibParams* calibration);

/// Reads an image list and all its images. `images` is emptied first.
/// @return 0, 1 when the list is not right (the images read so far stay in `images`), 7 when the path does not exist
/// (which is printed).
POLARLINEPRECISION_API std::int32_t ReadCalibImagelist(const std::string& path, ImagePairList* images);

/// Reads the four text tables of the POLY model from a folder and sets what they stand for: 6 x 4 cells, 1920 x 1200
/// pixels.
/// @return 0, or 1 when a table is missing (which is printed).
POLARLINEPRECISION_API std::int32_t ReadTxtPolyParams(std::string folder, ExportedCalibParams* calibration);

/// Reads 42 board points from a CSV report; the list is replaced.
/// @param second_layout  False: the first layout, true: the second one.
/// @return 0, or 7 when the path does not exist (which is printed).
POLARLINEPRECISION_API std::int32_t ReadBoardGTFromCSV(std::string path, BoardGroundTruth* board_points,
                                                       bool second_layout);

/// Appends the points of a text list, x y z a line. A file that does not open leaves the list as it was.
POLARLINEPRECISION_API void ReadBoardGTFromTxt(std::string path, BoardGroundTruth* board_points);

/// Reads a binary calibration file of one to a few cameras.
/// @param options  Must be 0.
/// @return 0, 4096 for a null argument, 4097 for a wrong CRC-8, 4098 for a form or option that is not supported, or the
/// `errno` of the open.
POLARLINEPRECISION_API std::int32_t LoadCalibrationParamsMulti(const char* path, MultiCalibration* record,
                                                               std::int32_t options);

/// Copies the text of the last failure, with its terminating zero, into the caller's buffer, which must be large
/// enough; one blank before the first failure. A success does not change it.
/// @return The buffer.
POLARLINEPRECISION_API char* GetPolarErrorInfo(char* buffer);

/// Copies the library's version with its terminating zero into the caller's buffer of 6 bytes at least.
/// @return true.
POLARLINEPRECISION_API bool GetVersionPolarLinePrecision(char* buffer);

}  // extern "C"
