#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/PairEvaluator.h"

/// How the six distances of the four triangulated points treat points that are not there.
struct FoursixRules {
  cv::Point3f initial;                ///< Where a point stands until it is found.
  std::int32_t missing_sum = 0;       ///< Truncated coordinate sum that tells of such a point.
  bool replaces_implausible = false;  ///< Errors of points at the origin, and large ones, become a small constant.
};

/// Stores the six errors and their extremes in `tri_dis`. A missing point gives the status for it and its text, and
/// leaves `tri_dis`.
PairStatus evaluateFoursix(PairEvaluator& evaluator, const MeasuredPair& pair,
                           const std::vector<cv::Point3f>& points_left, const FoursixRules& rules);
