#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "calibrations/document/Shown.h"
#include "camera/LensModel.h"
#include "platform/PlainNumber.h"
#include "polarline/calibration.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr int kLongestSide = 65535;

/// Takes a side from the front of a text; 0 for none.
int takeSide(std::string_view& text) {
  int side = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), side);
  if (error != std::errc{} || side > kLongestSide) return 0;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return side;
}

std::string pictureOf(const Camera& camera) {
  return camera.size.width == 0 ? "not known" : fmt::format("{}x{}", camera.size.width, camera.size.height);
}

}  // namespace

std::string typeName(int type) {
  const auto model = lensModelOf(type);
  if (model == LensModel::kBrownFive) return "Brown, K1 to K3";
  if (model == LensModel::kBrownEight) return "Brown, K1 to K6";
  return model == LensModel::kFisheye ? "fisheye" : "unknown";
}

std::string importedCalibrationText(const ImportedCalibration& imported) {
  const Calibration& calibration = imported.calibration;
  std::string text =
      fmt::format("format    {}\ntype      {} ({})\nsize      left {}, right {}\nbaseline  {}\n", imported.format,
                  calibration.type, typeName(calibration.type), pictureOf(calibration.left),
                  pictureOf(calibration.right), plain::rounded(baselineOf(calibration), 7));
  for (const Warning& each : imported.warnings)
    text += fmt::format("warning   {} ({})\n          {}\n", each.text, each.code, each.advice);
  return text;
}

double baselineOf(const Calibration& calibration) { return std::hypot(calibration.tx, calibration.ty, calibration.tz); }

Size sizeOf(const std::string& text) {
  std::string_view rest = text;
  const int width = takeSide(rest);
  const bool isSeparated = rest.starts_with('x');
  if (isSeparated) rest.remove_prefix(1);
  const int height = takeSide(rest);
  if (width < 1 || height < 1 || !isSeparated || !rest.empty()) {
    throw InputError("--size", "found " + calibrations::shown(text) + "; a size such as 640x480 was wanted");
  }
  return {width, height};
}

}  // namespace polarline
