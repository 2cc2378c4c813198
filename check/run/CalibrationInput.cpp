#include "check/run/CalibrationInput.h"

#include <array>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "check/run/CalibrationLook.h"
#include "check/run/InputText.h"
#include "check/run/PlainPath.h"
#include "check/run/RunStatus.h"
#include "check/set/ByteOrderMark.h"
#include "input/BinaryCalibration.h"
#include "input/CalibrationConversion.h"
#include "input/CalibrationReader.h"
#include "platform/Files.h"
#include "polarline/errors.h"

namespace polarline {

StereoCalibParams readCalibration(const InputFile& file, std::vector<Warning>& warnings) {
  const std::string& path = file.shown;
  StereoCalibParams calib;
  std::string error_text;
  // The binary reader of the exports would leave its tables as text files beside the calibration.
  const bool is_binary = files::extensionOf(path) == "bin";
  std::int32_t status = 0;
  if (!is_binary) requireLength(file);
  try {
    const PlainPath plain(file.path);
    if (files::extensionOf(path) == "json") lookAtMembers(path, plain.get(), warnings);
    status = is_binary ? loadStereoCalibration(plain.get(), calib) : ReadCalibResult(plain.get(), calib, error_text);
  } catch (const cv::Exception& error) {
    requireJson(file);
    throw InputError(path,
                     "is no JSON that can be read (" + textOf(error) + ")" + byte_order_mark::wordsOf(contentOf(file)));
  }
  if (status != polar_status::kSuccess)
    throw InputError(path, advisedMeaning(status) + (is_binary ? "" : byte_order_mark::wordsOf(contentOf(file))));
  lookAtGeometry(path, calib, warnings);
  // As the exports hand it on: through the caller's record.
  ExportedCalibParams exported;
  exportCalibration(calib, exported);
  importCalibration(exported, calib);
  return calib;
}

RectifiedParams readRectified(const InputFile& file) {
  std::istringstream lines(contentOf(file));
  std::string line;
  while (std::getline(lines, line) && (line.empty() || line[0] == '#')) {
  }
  std::array<double, 5> n{};
  std::istringstream numbers(line);
  numbers.imbue(std::locale::classic());
  char comma = ',';
  for (double& number : n) {
    if (comma != ',' || !(numbers >> number))
      throw InputError(file.shown, "five numbers by commas were wanted: focal, baseline, cx, cy, disparity offset");
    numbers >> comma;
  }
  RectifiedParams rectified;
  rectified.focal = n[0];
  rectified.baseline = n[1];
  rectified.cx = n[2];
  rectified.cy = n[3];
  rectified.disparity_offset = n[4];
  return rectified;
}

}  // namespace polarline
