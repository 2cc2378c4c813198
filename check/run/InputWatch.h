#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "check/judge/Limit.h"
#include "diagnose/warnings/Watch.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/results/PairObservation.h"
#include "polarline/check.h"

namespace polarline {

/// The cameras of pairs that were rectified elsewhere: two pinholes side by side.
StereoCalibParams pinholesOf(const RectifiedParams& rectified);

/// Watches what a run sees for inputs that make its figures worthless.
class InputWatch {
 public:
  /// @param truth True positions by id; where there is not one for each dot, the board counts as an even grid.
  void begin(const PolarConfig& config, const BoardInfo& board, const BoardGroundTruth& truth,
             const StereoCalibParams& calib, bool takes_rectified);
  /// The quality of a pair's pictures, which must be those of `seen`.
  PairQuality look(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures, const PairObservation& seen);
  std::vector<Warning> warnings(const std::vector<Limit>& limits) const;

 private:
  diagnose::SetFacts facts_;
  cv::Size crop_;
  std::optional<diagnose::Watch> watch_;  ///< From the first pair on.
};

}  // namespace polarline
