#pragma once

#include <array>
#include <opencv2/core.hpp>
#include <string>
#include <utility>
#include <vector>

#include "polarline/check.h"

namespace polarline {

/// Warns of what finished pairs show to be wrong with the set, each kind once, by the first pair that shows it.
class PairDoubts {
 public:
  /// `target`: path of the board's description, which a run that looks at fixed points instead has not: empty.
  PairDoubts(const BoardInfo& board, std::string target) : board_(board), target_(std::move(target)) {}

  void look(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures);

  std::vector<Warning> warnings;

 private:
  void lookAtSize(const PairCheck& pair, const std::array<cv::Mat, 2>& pictures);
  void lookAtNumbers(const PairCheck& pair);
  bool isTold(const std::string& code) const;

  BoardInfo board_;
  std::string target_;
  bool knows_size_ = false;
};

}  // namespace polarline
