#include "input/CalibrationReader.h"

#include <map>

#include "PolarLinePrecision/Status.h"
#include "input/BinaryCalibration.h"
#include "input/JsonCalibration.h"
#include "platform/Console.h"
#include "platform/Files.h"

namespace {

/// Kinds of calibration files. Only JSON and binary files are read; the names of the others are known all the same.
constexpr std::int32_t kUnknownType = 0;
constexpr std::int32_t kJsonType = 1;
constexpr std::int32_t kYamlType = 2;
constexpr std::int32_t kTextType = 3;
constexpr std::int32_t kBinaryType = 4;

void clearGrids(StereoCalibParams& calib) {
  for (CameraCalib* const camera : {&calib.left, &calib.right}) {
    camera->poly_nx = 0;
    camera->poly_ny = 0;
  }
}

}  // namespace

std::int32_t CalibFileType(const std::string& path) {
  static const std::map<std::string, std::int32_t> types = {
      {"json", kJsonType}, {"yaml", kYamlType}, {"txt", kTextType}, {"bin", kBinaryType}};
  const auto type = types.find(files::extensionOf(path));
  return type == types.end() ? kUnknownType : type->second;
}

std::int32_t ReadCalibResult(const std::string& path, StereoCalibParams& calib, std::string& errorText) {
  clearGrids(calib);
  switch (CalibFileType(path)) {
    case kBinaryType:
      readBinaryCalibration(path, calib);
      return polar_status::kSuccess;
    case kJsonType:
      return readJsonCalibration(path, calib, errorText);
    default:
      console::line("readCalibResult error: invalid fileType");
      return polar_status::kCalibrationType;
  }
}
