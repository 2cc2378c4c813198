#include "check/init/SetCalibration.h"

#include <fmt/format.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "calibrations/Sanity.h"
#include "calibrations/geometry/BrownTerms.h"
#include "camera/LensModel.h"
#include "check/init/Warnings.h"
#include "diagnose/warnings/Thresholds.h"
#include "input/MultiCalibrationLoader.h"
#include "platform/Console.h"
#include "polarline/errors.h"

namespace init {
namespace {

using polarline::Camera;
using polarline::ImportOptions;
using polarline::InputError;
using polarline::Size;

/// The lens models of a binary file.
constexpr int kBrownCode = 1;
constexpr int kFisheyeCode = 2;

std::string contentOf(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  if (!stream) throw InputError(path, std::strerror(errno));
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// A text of another tool holds no NUL.
bool isBinary(const std::string& bytes) { return bytes.find('\0') != std::string::npos; }

bool changesNumbers(const ImportOptions& options) {
  return options.scale != 1.0 || options.swap || options.baseline || options.pair;
}

Camera cameraOf(const MultiCalibrationEntry& entry) {
  const auto& p = entry.parameters;
  Camera camera{{static_cast<int>(entry.width), static_cast<int>(entry.height)}, p[0], p[1], p[2], p[3], {}, 0, 0};
  for (std::size_t k = 0; k < camera.k.size(); ++k) camera.k.at(k) = p.at(4 + k);
  camera.p1 = p[10];
  camera.p2 = p[11];
  return camera;
}

bool hasGrid(const MultiCalibrationEntry& entry) {
  constexpr int kMostCells = 25;
  const int cells = entry.table_block[0] * entry.table_block[1];
  return cells > 0 && cells <= kMostCells;
}

LensModel modelOf(const MultiCalibration& record, const polarline::Calibration& calibration) {
  if (hasGrid(record.entries[0]) && hasGrid(record.entries[1])) return LensModel::kPoly;
  if (record.model_code == kFisheyeCode) return LensModel::kFisheye;
  return calibrations::brownModelOf(calibration.left, calibration.right);
}

MultiCalibration binaryRecord(const std::string& path) {
  MultiCalibration record;
  std::ostringstream unheard;
  const console::Redirection quiet(unheard, unheard);
  const std::int32_t status = loadMultiCalibration(path.c_str(), &record, 0);
  if (status == polar_status::kCrcMismatch) throw InputError(path, "a check sum of the binary calibration is wrong");
  if (status != polar_status::kSuccess) throw InputError(path, "is no calibration: neither text nor our binary file");
  if (record.entries.size() < 2)
    throw InputError(path, fmt::format("holds {} camera; two were wanted", record.entries.size()));
  if (record.model_code != kBrownCode && record.model_code != kFisheyeCode)
    throw InputError(path, "holds lens models that no run takes; Brown or KB was wanted, the same for both cameras");
  return record;
}

SetCalibration fromBinary(const std::string& path, std::string bytes, const ImportOptions& options) {
  if (changesNumbers(options) || !options.model.empty())
    throw InputError(path,
                     "is our own binary calibration, which is taken as it stands: no option of the import applies");
  const MultiCalibration record = binaryRecord(path);
  SetCalibration set{{}, "calib.bin", std::move(bytes), "binary", {}};
  polarline::Calibration& calibration = set.calibration;
  calibration.left = cameraOf(record.entries[0]);
  calibration.right = cameraOf(record.entries[1]);
  const auto& pose = record.entries[1].extrinsics;
  calibration.rx = pose[0];
  calibration.ry = pose[1];
  calibration.rz = pose[2];
  calibration.tx = pose[3];
  calibration.ty = pose[4];
  calibration.tz = pose[5];
  calibration.type = static_cast<int>(modelOf(record, calibration));
  set.warnings = calibrations::oddities(calibration);
  return set;
}

void requireSize(Size found, Size wanted, const char* side) {
  if (wanted.width == 0 || wanted.height == 0) return;
  if (found.width == wanted.width && found.height == wanted.height) return;
  throw InputError(fmt::format("the pictures are {}x{}, but the calibration of the {} camera was made at {}x{}",
                               found.width, found.height, side, wanted.width, wanted.height));
}

void requireInside(const Camera& camera, Size picture, const char* side) {
  if (camera.cx > 0 && camera.cy > 0 && camera.cx < picture.width && camera.cy < picture.height) return;
  throw InputError(fmt::format(
      "the calibration puts the middle of the {} lens at ({:.1f}, {:.1f}), outside the pictures of {}x{}: it "
      "was made for another size",
      side, camera.cx, camera.cy, picture.width, picture.height));
}

/// How far a principal point lies from the middle, as a share of the side.
double offMiddle(const Camera& camera, Size picture) {
  return std::max(std::abs(camera.cx / picture.width - 0.5), std::abs(camera.cy / picture.height - 0.5));
}

/// Whether a text is our JSON of lenses that can only be Brown's: a fisheye has a fourth coefficient.
bool isOursWithoutK4(const std::string& text) {
  const auto json = nlohmann::json::parse(text, nullptr, false);
  if (!json.is_object() || !(json.contains("IR_L") || json.contains("DEPTH"))) return false;
  return std::ranges::none_of(json, [](const nlohmann::json& camera) {
    const auto k4 = camera.is_object() ? camera.find("K4") : camera.end();
    return k4 != camera.end() && !(k4->is_number() && k4->get<double>() == 0.0);
  });
}

}  // namespace

SetCalibration setCalibration(const std::vector<std::string>& files, const ImportOptions& options) {
  if (files.empty()) throw InputError("no calibration is named");
  std::string bytes = contentOf(files[0]);
  if (files.size() == 1 && options.format.empty() && isBinary(bytes))
    return fromBinary(files[0], std::move(bytes), options);
  ImportOptions asked = options;
  if (asked.model.empty() && isOursWithoutK4(bytes)) asked.model = "brown";
  polarline::ImportedCalibration imported = polarline::importCalibration(files, asked);
  const bool as_it_stands = imported.format == "polarline" && !changesNumbers(options);
  return {imported.calibration, "calib.json",
          as_it_stands ? std::move(bytes) : polarline::calibrationJson(imported.calibration), imported.format,
          std::move(imported.warnings)};
}

std::vector<polarline::Warning> checkSize(const SetCalibration& set, Size picture) {
  const polarline::Calibration& calibration = set.calibration;
  requireSize(picture, calibration.left.size, "left");
  requireSize(picture, calibration.right.size, "right");
  if (tellsSize(set)) return {};
  requireInside(calibration.left, picture, "left");
  requireInside(calibration.right, picture, "right");
  const double off = std::max(offMiddle(calibration.left, picture), offMiddle(calibration.right, picture));
  if (off <= diagnose::thresholds::kOffMiddle) return {};
  return {warning("principal_point",
                  fmt::format("The middle of a lens lies {:.0f} % of a side from the middle of the pictures ({}x{})",
                              100 * off, picture.width, picture.height))};
}

bool tellsSize(const SetCalibration& set) {
  return set.calibration.left.size.width != 0 && set.calibration.right.size.width != 0;
}

std::string modelName(int type) {
  return lensModelOf(type) == LensModel::kPoly ? "POLY tables" : polarline::typeName(type);
}

}  // namespace init
