#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Numbered and unnumbered results of one detection, each point beside its ellipse.
struct NumberedPoints {
  std::vector<CtrlPoint> points;
  std::vector<Ellipse> identified_ellipses;
  std::vector<CtrlPoint> unidentified;
  std::vector<Ellipse> unidentified_ellipses;
};

/// Keeps the numbered points whose id is in `detection_id`, as often as it is there. Meant: does nothing unless
/// `detection_switch` is on and four ids or more are named.
void filterByIds(const RingTargetConfig& config, NumberedPoints& numbered);

/// Values of a detection region: xmin, xmax, ymin, ymax.
inline constexpr std::size_t kRegionValues = 4;

/// Keeps the numbered points strictly inside the region, in fractions of the working image's size. Meant: the points
/// are in image pixels all the same, so that the region is larger or smaller than told where the image was resized.
/// Does nothing without a region.
void filterByRegion(const std::vector<float>& region, cv::Size working_size, NumberedPoints& numbered);

}  // namespace kestrune
