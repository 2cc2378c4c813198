#pragma once

#include <string>

#include "report/measure/PairMeasures.h"

namespace polarline {

/// Each plot of a pair in words with its numbers, for who hears the page.
struct PairSentences {
  std::string map, histogram, along, across, residual, distances, depth, disparity, board3d, worst_dots;
};

PairSentences pairSentences(const DotLists& dots, const PairMeasures& measures);

}  // namespace polarline
