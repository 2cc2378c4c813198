#pragma once

#include "check/run/RunInputs.h"
#include "diagnose/uncertainty/PairNoise.h"
#include "polar/run/PolarCore.h"

namespace polarline {

/// Rectifies pictures as the run does, for those who look at pictures that the run itself never saw.
class RunWarps {
 public:
  explicit RunWarps(const RunInputs& inputs);

  /// For pictures of that size. None for a run that rectifies nothing, and for one that crops, whose cameras are others
  /// for each pair. Good until the next call and while this lives; the maps are kept.
  PairWarps of(const cv::Size& size);

 private:
  bool rectifies_;
  PolarCore core_;
};

}  // namespace polarline
