#pragma once

#include <vector>

#include "refine/RefineDots.h"
#include "tools/accuracy/Sight.h"

namespace accuracy {

/// A measured centre of a dot of known id.
struct Measured {
  int id = 0;
  cv::Point2d centre;
};

/// Errors of measured centres against the images of the true ones, pixels.
struct Errors {
  int dots = 0;
  double rms = 0.0;       ///< Of the distances.
  double worst = 0.0;     ///< Largest distance.
  cv::Point2d mean;       ///< Bias.
  double by_bound = 0.0;  ///< Root mean square of the errors along x and y, each by its Cramer-Rao bound.
};

/// Only of the measurable dots.
Errors errorsOf(const std::vector<const Sight*>& sights, const std::vector<std::vector<Measured>>& measured);

/// How the observed errors compare with the predicted ones.
struct Calibration {
  int refined = 0;
  double observed_by_predicted = 0.0;  ///< Root mean square of the errors along x and y, each by its predicted sd.
  double mean_predicted = 0.0;         ///< Root mean square of the predicted distance, pixels.
};
Calibration calibrationOf(const std::vector<const Sight*>& sights, const std::vector<RefinedPicture>& pictures);

/// The refined centres of a picture, or its ellipses' centres.
std::vector<Measured> refinedCentres(const RefinedPicture& picture);

/// The places themselves.
std::vector<Measured> placesOf(const std::vector<DotPlace>& places);

}  // namespace accuracy
