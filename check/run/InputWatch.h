#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "check/judge/Limit.h"
#include "check/run/RunInputs.h"
#include "diagnose/warnings/Watch.h"
#include "polar/results/PairObservation.h"
#include "polarline/check.h"

namespace polarline {

/// Watches what a run sees for inputs that make its figures worthless.
class InputWatch {
 public:
  /// Where there is not a true position for each dot, the board counts as an even grid.
  void begin(const RunInputs& inputs, const BoardInfo& board);
  /// The quality of a pair's pictures, which must be those of `seen`.
  PairQuality look(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures, const PairObservation& seen);
  std::vector<Warning> warnings(const std::vector<Limit>& limits) const;

 private:
  diagnose::SetFacts facts_;
  cv::Size crop_;
  std::optional<diagnose::Watch> watch_;  ///< From the first pair on.
};

}  // namespace polarline
