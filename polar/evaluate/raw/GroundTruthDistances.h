#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/DistanceTables.h"

/// Compares the distance of every ordered pair of points with the true one: fills each record's lists and figures,
/// stores `dis_rms`, `nor_rms` and `zero_dis` in the evaluator, prints them, and writes the tables. `truth` holds the
/// true position of each record, board unit.
void evaluateDistances(PairEvaluator& evaluator, std::vector<PairPointRecord>& records,
                       const std::vector<cv::Point3f>& truth, DistanceTables& tables);
