#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <vector>

#include "polar/evaluate/PairEvaluator.h"

/// The cloud's point of that id, the first one if there are several; the origin without one.
cv::Point3f cloudPosition(const std::vector<CloudPoint>& cloud, std::int32_t id);
