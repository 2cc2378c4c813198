#pragma once

#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "diagnose/SeenSet.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/evaluate/PairEvaluator.h"

namespace polarline {

/// The dots of a run as a diagnosis looks at them.
class SeenPairs {
 public:
  void begin(const PolarConfig& config, const StereoCalibParams& calib, const cv::Size& size);
  /// The dots of a finished pair. This is the one place that says which centres are diagnosed.
  void add(std::size_t index, const PairEvaluator& evaluator);

  const SeenSet& set() const { return set_; }

 private:
  SeenSet set_;
};

}  // namespace polarline
