#pragma once

#include <vector>

#include "polarline/check.h"

namespace polarline {

/// The name of an entry of a figure: `dy_means`, `tri_dis[3]`.
std::string entryName(const Figure& figure, std::size_t entry);

/// What the finished pairs that measured a figure come to, in the order of the figures. Values that are not numbers do
/// not count.
std::vector<FigureSummary> summaryOf(const std::vector<PairCheck>& pairs);

/// The same of their refined figures.
std::vector<FigureSummary> refinedSummaryOf(const std::vector<PairCheck>& pairs);

}  // namespace polarline
