#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// The ellipses of an image apart by class, each list in the detector's order.
struct EllipsesByClass {
  std::vector<Ellipse> dots;
  std::vector<Ellipse> rings;
  std::vector<Ellipse> solids;
  std::vector<Ellipse> bigs;
  std::vector<Ellipse> unknowns;
};

/// Takes the ellipses apart. Dropped are those whose centre lies where the mask is 0 or outside it, and those of any
/// other class. An empty mask drops nothing. Pixels of the image.
EllipsesByClass sortByClass(const std::vector<Ellipse>& ellipses, const cv::Mat& mask);

}  // namespace kestrune
