#pragma once

#include <opencv2/core.hpp>

/// An image as 8-bit colour: grey and 16-bit grey (stretched between its own extremes) become three channels, four
/// channels lose the last. Any other type is returned as it is, sharing its pixels.
cv::Mat drawablePicture(const cv::Mat& image);

/// Both images of a rectified pair side by side, with a green line on every 32nd row from row 0: corresponding points
/// lie on one row. Throws `cv::Exception` for images that are not of type `CV_8UC3` or of different sizes.
cv::Mat polarLineCanvas(const cv::Mat& left, const cv::Mat& right);
