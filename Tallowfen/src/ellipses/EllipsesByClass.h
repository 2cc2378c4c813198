#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// The ellipses of an image, a list for each class, in the detector's order.
struct EllipsesByClass {
  std::vector<Ellipse> dots;
  std::vector<Ellipse> rings;
  std::vector<Ellipse> solids;
  std::vector<Ellipse> bigs;
  std::vector<Ellipse> unknowns;
};

/// Puts each ellipse into the list of its class. Left out are those of any other class, and those whose centre, in
/// pixels of the image, is on a 0 of the mask or outside it. An empty mask leaves out none.
EllipsesByClass sortByClass(const std::vector<Ellipse>& ellipses, const cv::Mat& mask);

}  // namespace kestrune
