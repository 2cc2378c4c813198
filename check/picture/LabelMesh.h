#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "polarline/detect.h"

/// Which dots bear their id in a picture: those of every n-th row and column, n of 1, 2, 5, 10 and so on so that ids of
/// that size (pixels of the picture) stand apart and are a thousand at most, and those at the board's corners, which
/// come first.
std::vector<const polarline::Dot*> labelledDots(const polarline::Detection& detection, const cv::Size2d& id_size);
