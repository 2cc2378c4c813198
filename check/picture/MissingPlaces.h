#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polarline/detect.h"

/// Where the missing dots should be in the picture, pixels: carried on from the two numbered dots next to them in each
/// of the four directions, the mean of those that there are. Dots without such neighbours are left out.
std::vector<cv::Point2d> missingPlaces(const polarline::Detection& detection);
