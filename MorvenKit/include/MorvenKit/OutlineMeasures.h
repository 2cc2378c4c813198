#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune::morvenkit {

/// What the roundness of an outline is formed of.
struct OutlineMeasures {
  double area = 0.0;       ///< Of the polygon, square pixels.
  double perimeter = 0.0;  ///< Closed; 0 for a single point.

  /// 4 pi area / perimeter^2: 1 for a circle, NaN for a single point.
  double circularity() const { return 4.0 * CV_PI * area / (perimeter * perimeter); }
};

/// Of an outline of whole pixels, to the last bit what `cv::contourArea` and `cv::arcLength` say. Every outline of an
/// image is asked, so both come of one walk along it that works on integers.
OutlineMeasures measureOutline(const std::vector<cv::Point>& outline);

}  // namespace kestrune::morvenkit
