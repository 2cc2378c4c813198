#pragma once

#include <opencv2/core.hpp>

/// Both images of a rectified pair side by side, with a green line on every 32nd row from row 0: corresponding points
/// lie on one row. Throws `cv::Exception` for images that are not of type `CV_8UC3` or of different sizes.
cv::Mat polarLineCanvas(const cv::Mat& left, const cv::Mat& right);
