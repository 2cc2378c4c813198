#pragma once

#include <string>

#include "report/measure/PairMeasures.h"

namespace polarline {

/// The plots of the row differences, or of what remains of them.
struct RowSentences {
  std::string map, histogram, along, across;
};

/// Each plot of a pair in words with its numbers, for who hears the page.
struct PairSentences : RowSentences {
  std::string residual, distances, depth, disparity, board3d, worst_dots;
};

/// Of the row differences without what the causes make of them.
RowSentences remainsSentences(const RowMeasures& remains);

PairSentences pairSentences(const DotLists& dots, const PairMeasures& measures);

}  // namespace polarline
