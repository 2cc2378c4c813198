#pragma once

#include <cstddef>
#include <opencv2/core.hpp>

#include "check/refined/RefinedPictures.h"
#include "diagnose/SeenSet.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/evaluate/PairEvaluator.h"

namespace polarline {

/// The dots of a run as a diagnosis looks at them. Of long runs evenly spaced pairs are kept, so that memory does not
/// grow with them.
class SeenPairs {
 public:
  SeenPairs(const PolarConfig& config, const StereoCalibParams& calib);
  /// The dots of a finished pair, whose pictures have the size `picture`. This is the one place that says which centres
  /// are diagnosed: the refined ones of the dots that were refined in both pictures, the detected ones without
  /// `refined` or where less than half of the dots are refined.
  void add(std::size_t index, const PairEvaluator& evaluator, const cv::Size& picture, const RefinedPictures* refined);

  const SeenSet& set() const { return set_; }

 private:
  void thinOut();

  SeenSet set_;
  cv::Size crop_;  ///< Empty: none.
  std::size_t added_ = 0;
  std::size_t every_ = 1;
  std::size_t dots_ = 0;
};

}  // namespace polarline
