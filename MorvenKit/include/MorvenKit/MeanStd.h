#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune::morvenkit {

/// Means and standard deviations of a list of points, in the points' own unit.
struct MeanStd {
  float mx = 0.0F;  ///< Mean of x.
  float my = 0.0F;  ///< Mean of y.
  float sx = 0.0F;  ///< Deviation of x from the mean square less the squared mean; 0 where that is not above 0.
  float sy = 0.0F;  ///< The same of y.
};

/// Forms the figures in single precision throughout, sums in list order: everything that is scaled by them depends on
/// these roundings. Throws `std::runtime_error` on an empty list.
MeanStd calcMeanStd(const std::vector<cv::Point2f>& points);

}  // namespace kestrune::morvenkit
