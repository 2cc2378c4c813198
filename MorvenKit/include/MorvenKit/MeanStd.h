#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune::morvenkit {

/// Means and standard deviations of a list of points, in the points' own unit.
struct MeanStd {
  float mx = 0.0F;  ///< Mean of x.
  float my = 0.0F;  ///< Mean of y.
  float sx = 0.0F;  ///< Standard deviation of x: root of mean square less squared mean, 0 where that is not above 0.
  float sy = 0.0F;  ///< The same of y.
};

/// In single precision throughout, sums in list order: all that is scaled by these figures depends on their roundings.
/// Throws `std::runtime_error` on an empty list.
MeanStd calcMeanStd(const std::vector<cv::Point2f>& points);

}  // namespace kestrune::morvenkit
