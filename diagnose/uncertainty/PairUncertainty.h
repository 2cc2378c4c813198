#pragma once

#include <cstdint>
#include <vector>

#include "diagnose/uncertainty/PairNoise.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polarline/uncertainty.h"

/// Whether a pair measured a figure that is a mean or a root mean square itself.
bool hasMeans(const PairFigures& figures);

/// How certain the figures of the evaluator's pair are that are means or root mean squares and that the pair measured
/// itself: `tri_rms`, `tri_mean`, `dy_means`, `dy_ratio`, `allpoints_means`, `space_rms`, `dis_rms`, `nor_rms`,
/// `zero_dis`, `icp_x_rms`, `icp_y_rms`, `icp_z_rms`, `icp_nor_rms`, `gt_rms`. Others have none: the extremes follow
/// single dots. `columns`: of the board. Where `noise` is empty, the scatter of the dots about their local trend stands
/// for it, which holds the detection's own errors too: the intervals are then too wide. The same seed gives the same
/// numbers.
std::vector<polarline::FigureUncertainty> pairUncertainty(const PairEvaluator& evaluator, const MeasuredNoise& noise,
                                                          int columns, std::uint64_t seed);
