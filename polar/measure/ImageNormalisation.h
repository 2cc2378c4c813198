#pragma once

#include <opencv2/core.hpp>

/// The 8-bit grey picture of an image as the detection takes it: 16-bit one-channel images stretched by their own
/// minimum and maximum, 8-bit images of three (BGR) or four (BGRA) channels turned to grey. Any other type, and an
/// empty image, comes back as it is, pixels shared.
cv::Mat normaliseTo8Bit(const cv::Mat& image);
