#pragma once

#include <cstdint>

/// Every status that an export of the library returns. 0 is success; small positive values stand for problems of the
/// input, negative values for failures of a run, 4096 and above for the binary calibration loader (which also passes
/// the C library's `errno` of a failed open through).
namespace polar_status {

inline constexpr std::int32_t kSuccess = 0;
/// Image list unreadable, or a polynomial table missing.
inline constexpr std::int32_t kInputUnreadable = 1;
/// A ground-truth point of the polar configuration is not three numbers.
inline constexpr std::int32_t kBadGroundTruthPoint = 3;
/// The calibration file's extension is neither `json` nor `bin`.
inline constexpr std::int32_t kCalibrationType = 4;
/// A named file does not exist.
inline constexpr std::int32_t kFileMissing = 7;
/// The run ended without one result record.
inline constexpr std::int32_t kNoResults = 8;
/// The progress callback returned false.
inline constexpr std::int32_t kStoppedByCallback = 35;
/// Null argument of the binary calibration loader.
inline constexpr std::int32_t kNullArgument = 4096;
/// A CRC-8 of the binary calibration file does not match.
inline constexpr std::int32_t kCrcMismatch = 4097;
/// Form of the binary calibration file, or an option, not supported.
inline constexpr std::int32_t kNotSupported = 4098;
/// The run object has no core; in `CalTempCompensateCoeff`: the polar configuration failed.
inline constexpr std::int32_t kNoCore = -1;
/// `CalTempCompensateCoeff`: the calibration failed.
inline constexpr std::int32_t kTempCalibration = -2;
/// `CalTempCompensateCoeff`: the image list failed.
inline constexpr std::int32_t kTempImageList = -3;
/// `CalTempCompensateCoeff`: the compensation step failed. The same value tells of a JSON calibration that does not
/// open or has no camera pair.
inline constexpr std::int32_t kTempCompensation = -4;
/// A JSON calibration does not open or holds no camera pair.
inline constexpr std::int32_t kCalibrationUnreadable = -4;
/// The detector configuration could not be loaded.
inline constexpr std::int32_t kTargetConfig = -5;
/// Fewer than 6 points found in an image.
inline constexpr std::int32_t kTooFewDetected = -6;
/// A result folder could not be made.
inline constexpr std::int32_t kResultFolder = -7;
/// The image set is not two lists, or an image is empty.
inline constexpr std::int32_t kImages = -8;
/// Too few points are shared by the two images, or the residual step failed.
inline constexpr std::int32_t kTooFewShared = -9;
/// One of the four chosen points is missing.
inline constexpr std::int32_t kPointMissing = -10;
/// The POLY model was selected without all its tables.
inline constexpr std::int32_t kPolyTables = -11;
/// The outlier search of the board fit found an outlier.
inline constexpr std::int32_t kOutlier = -13;

}  // namespace polar_status
