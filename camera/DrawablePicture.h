#pragma once

#include <opencv2/core.hpp>

/// An image as 8-bit colour: grey and 16-bit grey (stretched between its own extremes) become three channels, four
/// channels lose the last. Any other type is returned as it is, sharing its pixels.
cv::Mat drawablePicture(const cv::Mat& image);
