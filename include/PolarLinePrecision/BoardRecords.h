#pragma once

#include <opencv2/core.hpp>
#include <vector>

/// Known coordinates of the board's dots, in the board's unit. The index is the dot's id, row * columns + column; the
/// layers above read entry k for the dot with id k.
using BoardGroundTruth = std::vector<cv::Point3f>;

/// Images by camera and by pair: entry 0 holds the left images, entry 1 the right ones, both in pair order. 8- or
/// 16-bit, one channel, or 8-bit with three or four channels. An image that failed to decode is an empty matrix. The
/// pixels are shared, not copied.
using ImagePairList = std::vector<std::vector<cv::Mat>>;
