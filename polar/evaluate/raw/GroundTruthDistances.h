#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/raw/DistanceTables.h"
#include "polar/results/PairFigures.h"

/// Compares the distance of every ordered pair of the figures' `pairPoints` with the true one: fills each point's
/// figures, stores their `distances`, `dis_rms`, `nor_rms` and `zero_dis`, prints them, and writes the tables. `truth`
/// holds the true position of each point, board unit.
void evaluateDistances(PairFigures& figures, const std::vector<cv::Point3f>& truth, DistanceTables& tables);
