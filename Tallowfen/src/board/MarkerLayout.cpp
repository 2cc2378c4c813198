#include "Tallowfen/src/board/MarkerLayout.h"

#include <array>

namespace kestrune {

namespace {

// Distances of the ring rectangle's corners from the board's middle, in grid steps. All divisions are integer
// divisions.
struct HalfRectangle {
  int width;
  int height;
};

HalfRectangle spannedByRings(const RingTargetConfig& config, const MarkerSizes& sizes) {
  const int width = sizes.rings_small ? config.inner_width : config.outter_width;
  const int height = sizes.rings_small ? config.inner_height : config.outter_height;
  return {(width - 1) / 2, (height - 1) / 2};
}

cv::Point solidRing(const RingTargetConfig& config, const MarkerSizes& sizes, cv::Point centre, HalfRectangle half) {
  // Halfway from the middle to the upper end of its rectangle's left side. With rings in the inner and the solid ring
  // in the outer rectangle the quarter is taken at once: meant, it cuts differently.
  if (sizes.rings_small && sizes.solid_big) {
    return {centre.x - (config.outter_width - 1) / 2, centre.y - (config.outter_height - 1) / 4};
  }
  return {centre.x - half.width, centre.y - half.height / 2};
}

std::vector<cv::Point2f> landMarks(const RingTargetConfig& config) {
  const auto mark = [](int x, int y) { return cv::Point2f(static_cast<float>(x), static_cast<float>(y)); };
  return {mark(config.land_mark1_x, config.land_mark1_y), mark(config.land_mark2_x, config.land_mark2_y),
          mark(config.land_mark3_x, config.land_mark3_y), mark(config.land_mark4_x, config.land_mark4_y)};
}

}  // namespace

std::vector<cv::Point2f> MarkerLayout(const RingTargetConfig& config, const MarkerSizes& sizes, float scale) {
  const cv::Point centre((config.cols + 1) / 2 - 1, (config.rows + 1) / 2 - 1);
  const HalfRectangle half = spannedByRings(config, sizes);
  const std::array<cv::Point, 1 + kRingCount> cells = {solidRing(config, sizes, centre, half),
                                                       {centre.x - half.width, centre.y - half.height},
                                                       {centre.x + half.width, centre.y - half.height},
                                                       {centre.x + half.width, centre.y + half.height},
                                                       {centre.x - half.width, centre.y + half.height}};
  std::vector<cv::Point2f> layout;
  layout.reserve(cells.size());
  for (const cv::Point& cell : cells) {
    layout.emplace_back(static_cast<float>(cell.x) * scale, static_cast<float>(cell.y) * scale);
  }
  return layout;
}

std::vector<cv::Point2f> BigDotLayout(const RingTargetConfig& config, int sx, int sy) {
  if (config.land_mark_switch == kSwitchedOn) return landMarks(config);
  const int left = (config.cols - config.inner_width) / 2;
  const int right = (config.cols + config.inner_width) / 2 - 1;
  const int top = (config.rows - config.inner_height) / 2;
  const int bottom = (config.rows + config.inner_height) / 2 - 1;
  const auto at = [sx, sy](int column, int row) {
    return cv::Point2f(static_cast<float>(column) * static_cast<float>(sx),
                       static_cast<float>(row) * static_cast<float>(sy));
  };
  // The last dot stands one column in, as the board would look the same after half a turn otherwise.
  return {at(left, bottom), at(right, bottom), at(right, top), at(left + 1, top)};
}

}  // namespace kestrune
