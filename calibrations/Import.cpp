#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "calibrations/Sanity.h"
#include "calibrations/Warnings.h"
#include "calibrations/document/Shown.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/geometry/Angles.h"
#include "calibrations/geometry/BrownTerms.h"
#include "camera/LensModel.h"
#include "platform/PlainNumber.h"
#include "polarline/calibration.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

using calibrations::Lens;
using calibrations::SourcePair;

/// A rotation printed with fewer digits than any sound file has.
constexpr double kRoundedRotation = 1e-6;
constexpr double kLongestInMetres = 2.0;
constexpr double kShortestBaseline = 1e-9;
constexpr double kLongestBaseline = 1e9;

void requireOptions(const ImportOptions& options) {
  if (!(options.scale > 0.0) || !std::isfinite(options.scale)) {
    throw InputError("--scale", fmt::format("found {}; a factor above 0 was wanted", options.scale));
  }
  if (!options.model.empty() && options.model != "brown" && options.model != "fisheye") {
    throw InputError("--model", "found " + calibrations::shown(options.model) + "; brown or fisheye was wanted");
  }
  if (!options.baseline) return;
  if (!(*options.baseline > 0.0) || !std::isfinite(*options.baseline)) {
    throw InputError("--baseline", fmt::format("found {}; a length above 0 was wanted", *options.baseline));
  }
  if (options.scale != 1.0) throw InputError("--baseline", "says the length in the board unit; leave --scale out");
}

calibrations::Documents documentsOf(const std::vector<std::string>& files) {
  if (files.empty()) throw InputError("found no file; those of a calibration were wanted");
  calibrations::Documents documents;
  for (const std::string& file : files) {
    for (calibrations::Document& document : calibrations::readDocuments(file)) documents.push_back(std::move(document));
  }
  return documents;
}

const char* nameOf(Lens lens) { return lens == Lens::kFisheye ? "fisheye" : "brown"; }

void requireLens(const SourcePair& pair, const ImportOptions& options, const std::string& file) {
  if (pair.left.lens != pair.right.lens) {
    throw InputError(file, fmt::format("the left camera is {}, the right one {}; two of one lens model were wanted",
                                       nameOf(pair.left.lens), nameOf(pair.right.lens)));
  }
  if (!options.model.empty() && options.model != nameOf(pair.left.lens)) {
    throw InputError(file, fmt::format("the cameras are {}; --model says {}", nameOf(pair.left.lens), options.model));
  }
}

LensModel modelOf(const SourcePair& pair) {
  if (pair.left.lens == Lens::kFisheye) return LensModel::kFisheye;
  return calibrations::brownModelOf(pair.left.camera, pair.right.camera);
}

void setPose(Calibration& calibration, const SourcePair& pair, double factor) {
  const calibrations::Pose& pose = pair.right_from_left;
  const calibrations::Angles angles = pair.angles.value_or(calibrations::anglesOf(pose.R));
  calibration.rx = angles.rx;
  calibration.ry = angles.ry;
  calibration.rz = angles.rz;
  calibration.tx = pose.T[0] * factor + 0.0;  // The sum with 0 makes no negative zeros.
  calibration.ty = pose.T[1] * factor + 0.0;
  calibration.tz = pose.T[2] * factor + 0.0;
}

/// What the lengths of the file are multiplied with.
double factorOf(const calibrations::Pose& pose, const ImportOptions& options, const std::string& file) {
  const double length = cv::norm(pose.T);
  if (length < kShortestBaseline)
    throw InputError(file, fmt::format("found a baseline of {}; two cameras apart were wanted", length));
  const double factor = options.baseline ? *options.baseline / length : options.scale;
  if (!(length * factor >= kShortestBaseline && length * factor <= kLongestBaseline)) {
    throw InputError(file, fmt::format("found a baseline of {} x {}; one from {} to {} was wanted", length, factor,
                                       kShortestBaseline, kLongestBaseline));
  }
  return factor;
}

void setSize(Camera& camera, const ImportOptions& options, const char* name, std::vector<Warning>& warnings) {
  if (!options.size) return;
  const auto [width, height] = std::exchange(camera.size, *options.size);
  if (width == 0 || (width == camera.size.width && height == camera.size.height)) return;
  warnings.push_back(
      calibrations::warning("image_size_overridden", fmt::format("{}: {}x{} in the file, {}x{} was said", name, width,
                                                                 height, camera.size.width, camera.size.height)));
}

/// A baseline that is said in place of the file's. Another unit of length is no contradiction.
void warnOfBaseline(const SourcePair& pair, const ImportOptions& options, std::vector<Warning>& warnings) {
  constexpr double kSame = 0.01;
  if (!options.baseline || pair.is_length_lost) return;
  const double length = cv::norm(pair.right_from_left.T);
  const double decades = std::round(std::log10(*options.baseline / length));
  if (std::abs(*options.baseline / length / std::pow(10.0, decades) - 1.0) <= kSame) return;
  warnings.push_back(calibrations::warning(
      "baseline_overridden",
      fmt::format("{} in the file, {} was said", plain::rounded(length, 4), plain::rounded(*options.baseline, 4))));
}

/// Boards are measured in millimetres, calibrations often in metres.
bool looksLikeMetres(const Calibration& calibration, const ImportOptions& options) {
  return options.scale == 1.0 && !options.baseline && baselineOf(calibration) < kLongestInMetres;
}

}  // namespace

std::vector<std::string> calibrationFormats() {
  std::vector<std::string> names;
  names.reserve(calibrations::kFormats.size());
  for (const calibrations::Format& format : calibrations::kFormats) names.emplace_back(format.name);
  return names;
}

ImportedCalibration importCalibration(const std::vector<std::string>& files, const ImportOptions& options) {
  requireOptions(options);
  const calibrations::Documents documents = documentsOf(files);
  const calibrations::Format& format = calibrations::formatOf(documents, options.format);
  SourcePair pair = format.read(documents, options);
  requireLens(pair, options, files.front());
  if (options.swap) {
    std::swap(pair.left, pair.right);
    pair.right_from_left = inverse(pair.right_from_left);
    pair.angles.reset();
  }
  ImportedCalibration imported;
  imported.format = format.name;
  Calibration& calibration = imported.calibration;
  calibration.type = static_cast<int>(modelOf(pair));
  calibration.left = pair.left.camera;
  calibration.right = pair.right.camera;
  setSize(calibration.left, options, "left", imported.warnings);
  setSize(calibration.right, options, "right", imported.warnings);
  setPose(calibration, pair, factorOf(pair.right_from_left, options, files.front()));
  warnOfBaseline(pair, options, imported.warnings);
  if (pair.deviation > kRoundedRotation) {
    imported.warnings.push_back(
        calibrations::warning("rounded_rotation", "a printed rotation is off by " + plain::rounded(pair.deviation, 2)));
  }
  if (looksLikeMetres(calibration, options))
    imported.warnings.push_back(calibrations::warning(
        "baseline_in_metres",
        fmt::format("the baseline is {} board units", plain::rounded(baselineOf(calibration), 4))));
  const std::vector<Warning> odd = calibrations::oddities(calibration);
  imported.warnings.insert(imported.warnings.end(), odd.begin(), odd.end());
  return imported;
}

}  // namespace polarline
