
#include "PolarLinePrecision.h"
#include "exports/ErrorChannel.h"
#include "input/BoardGroundTruthReader.h"
#include "input/CalibrationConversion.h"
#include "input/MultiCalibrationLoader.h"
#include "input/PolyTableFiles.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "polar/run/PolarPrecision.h"

namespace {

bool existsOrReported(const std::string& path) {
  if (files::exists(path)) return true;
  console::line(path, " is not exists!");
  return false;
}

}  // namespace

std::int32_t ReadCalibParams(std::string path, ExportedCalibParams* calibration) {
  requireNonNull(calibration, "calibration");
  if (!existsOrReported(path)) return polar_status::kFileMissing;
  StereoCalibParams calib;
  PolarPrecision().ReadCalibResult(path, calib);
  exportCalibration(calib, *calibration);
  return polar_status::kSuccess;
}

std::int32_t ReadCalibImagelist(const std::string& path, ImagePairList* images) {
  requireNonNull(images, "images");
  if (!existsOrReported(path)) return polar_status::kFileMissing;
  const bool read = PolarPrecision().ReadImageList(path, *images) != 0;
  console::line(read ? "readCalibImagelist() success!" : "readCalibImagelist() failed!");
  return read ? polar_status::kSuccess : polar_status::kInputUnreadable;
}

std::int32_t ReadTxtPolyParams(std::string folder, ExportedCalibParams* calibration) {
  requireNonNull(calibration, "calibration");
  return readPolyTableFiles(folder, calibration);
}

std::int32_t ReadBoardGTFromCSV(std::string path, BoardGroundTruth* board_points, bool second_layout) {
  requireNonNull(board_points, "board_points");
  if (!existsOrReported(path)) return polar_status::kFileMissing;
  if (second_layout) {
    ReadBoardCsvLayoutB(path, *board_points);
  } else {
    ReadBoardCsvLayoutA(path, *board_points);
  }
  return polar_status::kSuccess;
}

void ReadBoardGTFromTxt(std::string path, BoardGroundTruth* board_points) {
  requireNonNull(board_points, "board_points");
  ReadBoardTxt(path, *board_points);
}

std::int32_t LoadCalibrationParamsMulti(const char* path, MultiCalibration* record, std::int32_t options) {
  return loadMultiCalibration(path, record, options);
}
