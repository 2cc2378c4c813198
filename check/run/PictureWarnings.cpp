#include "check/run/PictureWarnings.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "check/explain/WarningOf.h"
#include "diagnose/warnings/Thresholds.h"

namespace polarline {
namespace {

cv::Size sizeOf(const CameraCalib& camera) { return {static_cast<int>(camera.width), static_cast<int>(camera.height)}; }

std::string shown(const cv::Size& size) { return fmt::format("{} x {}", size.width, size.height); }

}  // namespace

std::string sizesOf(const ListedPair& pair, const std::array<cv::Size, 2>& sizes) {
  return fmt::format("{} is {}, {} is {} pixels", pair.left, shown(sizes[0]), pair.right, shown(sizes[1]));
}

void PictureWarnings::begin(const PolarConfig& config, const StereoCalibParams& calib) {
  // Pairs that were rectified elsewhere have no calibration, and nothing of them is triangulated.
  const bool is_raw = calib.left.intrinsics[0] != 0.0;
  takes_grey_only_ = is_raw && config.triangulate_residual_switch != 0;
  for (const std::size_t side : {0U, 1U}) {
    const CameraCalib& camera = side == 0 ? calib.left : calib.right;
    principal_.at(side) = {camera.intrinsics[2], camera.intrinsics[3]};
  }
  has_principal_ = is_raw;
  calibrated_ = {sizeOf(calib.left), sizeOf(calib.right)};
}

void PictureWarnings::look(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes, bool has_colour) {
  if (has_colour && takes_grey_only_)
    warn("colour_pictures", index, fmt::format("{} or {} has colour", pair.left, pair.right));
  if (sizes[0].empty() || sizes[1].empty()) return;
  lookAtSizes(index, pair, sizes);
  if (has_principal_ && sizes[0] == sizes[1]) lookAtPrincipalPoints(index, pair, sizes);
}

void PictureWarnings::lookAtEnds(int index, const ListedPair& pair, const std::array<bool, 2>& cut_off) {
  if (cut_off[0] || cut_off[1])
    warn("picture_cut_off", index,
         fmt::format("{} is cut off: grey stands for the rest", cut_off[0] ? pair.left : pair.right));
}

void PictureWarnings::lookAtPrincipalPoints(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes) {
  for (const std::size_t side : {0U, 1U}) {
    const cv::Size& size = sizes.at(side);
    const cv::Point2d& point = principal_.at(side);
    if (point.x >= 0.0 && point.y >= 0.0 && point.x < size.width && point.y < size.height) {
      lookAtMiddle(index, side, pair, size);
      continue;
    }
    return warn("principal_point_outside", index,
                fmt::format("{} is {} pixels; the calibration's principal point (Cx, Cy) is {}, {}",
                            side == 0 ? pair.left : pair.right, shown(size), static_cast<float>(point.x),
                            static_cast<float>(point.y)));
  }
}

void PictureWarnings::lookAtMiddle(int index, std::size_t side, const ListedPair& pair, const cv::Size& size) {
  if (!calibrated_.at(side).empty()) return;  // The calibration tells its size itself.
  const cv::Point2d& point = principal_.at(side);
  const double off = std::max(std::abs(point.x / size.width - 0.5), std::abs(point.y / size.height - 0.5));
  if (off <= diagnose::thresholds::kOffMiddle) return;
  warn("principal_point", index,
       fmt::format("{} is {} pixels; the middle of the lens (Cx, Cy) lies {:.0f} % of a side from its middle",
                   side == 0 ? pair.left : pair.right, shown(size), 100.0 * off));
}

void PictureWarnings::lookAtSizes(int index, const ListedPair& pair, const std::array<cv::Size, 2>& sizes) {
  if (first_[0].empty()) first_ = sizes;
  if (sizes[0] != sizes[1]) return warn("picture_size", index, sizesOf(pair, sizes));
  for (const std::size_t side : {0U, 1U}) {
    const cv::Size& wanted = calibrated_.at(side).empty() ? first_.at(side) : calibrated_.at(side);
    if (sizes.at(side) == wanted) continue;
    const char* const who = calibrated_.at(side).empty() ? "the pictures before are" : "the calibration is for";
    return warn("picture_size", index,
                fmt::format("{} is {} pixels; {} {}", side == 0 ? pair.left : pair.right, shown(sizes.at(side)), who,
                            shown(wanted)));
  }
}

void PictureWarnings::warn(const std::string& code, int index, const std::string& text) {
  if (std::ranges::count(warnings, code, &Warning::code) != 0) return;
  warnings.push_back(warningOf(code, text, index));
}

}  // namespace polarline
