#include "check/run/Inputs.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "camera/LensModel.h"
#include "check/explain/WarningOf.h"
#include "check/judge/Names.h"
#include "check/run/PlainPath.h"
#include "input/BinaryCalibration.h"
#include "input/BoardGroundTruthReader.h"
#include "input/CalibrationConversion.h"
#include "input/CalibrationReader.h"
#include "input/KeyValueText.h"
#include "input/PolarConfigKeys.h"
#include "input/PolarConfigReader.h"
#include "platform/BoundedInput.h"
#include "platform/ClassicNumber.h"
#include "platform/Files.h"
#include "polarline/errors.h"
#include "polarline/explain.h"

namespace polarline {
namespace {

/// Characters of a line that a message repeats.
constexpr std::size_t kMostShown = 40;

std::vector<std::string> keyNames() {
  std::vector<std::string> names;
  polar_keys::forEach([&](const auto& key) { names.emplace_back(key.name); });
  return names;
}

void requireKey(const std::string& key, const std::string& setting) {
  const std::vector<std::string> names = keyNames();
  if (std::ranges::count(names, key) == 0)
    throw InputError("setting '" + setting + "'",
                     "the polar configuration has no key '" + key + "'" + offer(nearest(key, names)));
}

/// The lines that take the place of those of the file: of equal keys the last one wins.
std::string linesOf(const std::vector<std::string>& settings) {
  std::string lines;
  for (const std::string& setting : settings) {
    const std::size_t equals = setting.find('=');
    if (equals == std::string::npos || setting.find_first_of("\r\n") != std::string::npos)
      throw InputError("setting '" + setting + "'", "KEY=VALUE was wanted");
    const std::string key = setting.substr(0, equals);
    requireKey(key, setting);
    lines += "\n" + key + ": " + setting.substr(equals + 1);
  }
  return lines;
}

std::string contentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError(path, "cannot be read");
  return bounded::readText(stream);
}

void warnOfUnknown(const KeyValueTable& table, const std::string& path, std::vector<Warning>& warnings) {
  const std::vector<std::string> names = keyNames();
  for (const auto& [key, value] : table) {
    if (std::ranges::count(names, key) != 0) continue;
    warnings.push_back(
        warningOf("unknown_key", path + ": nothing reads the key '" + key + "'" + offer(nearest(key, names))));
  }
}

std::string advisedMeaning(std::int32_t status) {
  const auto explained = explain(std::to_string(status));
  return explained ? explained->meaning + " " + explained->advice : "status " + std::to_string(status);
}

std::string jsonOf(std::int32_t value) { return std::to_string(value); }
std::string jsonOf(bool value) { return value ? "true" : "false"; }
std::string jsonOf(float value) { return std::isfinite(value) ? fmt::format("{}", value) : "null"; }
std::string jsonOf(double value) { return std::isfinite(value) ? fmt::format("{}", value) : "null"; }

template <typename Item>
std::string jsonOf(const std::vector<Item>& list) {
  std::string text;
  for (const auto& item : list) text += (text.empty() ? "" : ", ") + jsonOf(item);
  return "[" + text + "]";
}

CameraNumbers numbersOf(const CameraCalib& camera) {
  const auto& n = camera.intrinsics;
  return {n[0], n[1], n[2], n[3], {n.begin() + 4, n.end()}};
}

const char* modelName(int type) {
  switch (type) {
    case 0:
      return "brown5";
    case 1:
      return "brown8";
    case 2:
      return "fisheye";
    case 3:
      return "poly";
    default:
      return "other";
  }
}

}  // namespace

PolarConfig readPolar(const std::string& path, const std::vector<std::string>& settings,
                      std::vector<Warning>& warnings) {
  const std::string text = contentOf(path) + linesOf(settings);
  const KeyValueTable table = parseKeyValueText(text);
  if (table.empty()) throw InputError(path, "has no line 'key: value'");
  warnOfUnknown(table, path, warnings);
  PolarConfig config;
  // The reader takes a path for a file if it opens; a text with line ends is none.
  const std::int32_t status = ReadPolarConfig(text + "\n", "", config);
  if (status != polar_status::kSuccess) throw InputError(path, advisedMeaning(status));
  return config;
}

StereoCalibParams readCalibration(const std::string& path) {
  StereoCalibParams calib;
  std::string error_text;
  // The binary reader of the exports would leave its tables as text files beside the calibration.
  const bool is_binary = files::extensionOf(path) == "bin";
  std::int32_t status = 0;
  try {
    const PlainPath plain(path);
    status = is_binary ? loadStereoCalibration(plain.get(), calib) : ReadCalibResult(plain.get(), calib, error_text);
  } catch (const cv::Exception& error) {
    throw InputError(path, error.err.empty() ? error.what() : error.err);
  }
  if (status != polar_status::kSuccess) throw InputError(path, advisedMeaning(status));
  for (const CameraCalib* camera : {&calib.left, &calib.right}) {
    if (camera->intrinsics[0] == 0.0 || camera->intrinsics[1] == 0.0)
      throw InputError(path, std::string("the ") + (camera == &calib.left ? "left" : "right") +
                                 " camera has no focal length (Fx, Fy)");
  }
  // As the exports hand it on: through the caller's record.
  ExportedCalibParams exported;
  exportCalibration(calib, exported);
  importCalibration(exported, calib);
  return calib;
}

RectifiedParams readRectified(const std::string& path) {
  std::istringstream lines(contentOf(path));
  std::string line;
  while (std::getline(lines, line) && (line.empty() || line[0] == '#')) {
  }
  std::array<double, 5> n{};
  std::istringstream numbers(line);
  numbers.imbue(std::locale::classic());
  char comma = ',';
  for (double& number : n) {
    if (comma != ',' || !(numbers >> number))
      throw InputError(path, "five numbers by commas were wanted: focal, baseline, cx, cy, disparity offset");
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

BoardGroundTruth readBoardTruth(const std::string& path) {
  std::istringstream lines(contentOf(path));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    std::istringstream words(line);
    words.imbue(std::locale::classic());
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    const bool is_blank = line.find_first_not_of(" \t\r") == std::string::npos;
    if (!is_blank && !(words >> x >> y >> z))
      throw InputError(fmt::format("{}, line {}", path, number),
                       "'" + line.substr(0, kMostShown) + "' was found; three numbers x y z were wanted");
  }
  BoardGroundTruth points;
  ReadBoardTxt(path, points);
  return points;
}

void warnOfBoardTruth(const std::string& path, const PolarConfig& config, const BoardInfo& board,
                      std::vector<Warning>& warnings) {
  if (!config.discalswitch && !config.spaceRms_switch) return;
  const std::size_t dots = static_cast<std::size_t>(board.rows) * static_cast<std::size_t>(board.cols);
  if (path.empty()) {
    warnings.push_back(
        warningOf("no_board_truth", "discalswitch or spaceRms_switch is on, and there is no board_gt.txt"));
  } else if (board.points < dots && config.frame_work == 0) {
    warnings.push_back(warningOf("board_truth_short",
                                 fmt::format("{}: {} positions; the board has {} dots", path, board.points, dots)));
  }
}

std::vector<Setting> settingsOf(const PolarConfig& config) {
  std::vector<Setting> settings;
  polar_keys::forEach([&](auto key) { settings.push_back({key.name, jsonOf(key.valueIn(config))}); });
  return settings;
}

BoardInfo readBoard(const std::string& target_path) {
  kestrune::RingTarget target;
  try {
    target.loadConfig(PlainPath(target_path).get());
  } catch (const std::exception& error) {
    throw InputError(target_path, error.what());
  }
  const kestrune::RingTargetConfig& config = target.config();
  BoardInfo board;
  board.type = config.board_type;
  board.rows = config.rows;
  board.cols = config.cols;
  board.step = config.step;
  board.step_y = kestrune::rowPitchOf(config);
  return board;
}

Cameras camerasOf(int type, const StereoCalibParams& calib) {
  Cameras cameras;
  cameras.type = type;
  cameras.model = modelName(type);
  cameras.left = numbersOf(calib.left);
  cameras.right = numbersOf(calib.right);
  cameras.extrinsics.assign(calib.extrinsics.begin(), calib.extrinsics.end());
  return cameras;
}

Cameras camerasOf(const RectifiedParams& rectified) {
  Cameras cameras;
  cameras.model = "rectified";
  cameras.left = cameras.right = {rectified.focal, rectified.focal, rectified.cx, rectified.cy, {}};
  return cameras;
}

}  // namespace polarline
