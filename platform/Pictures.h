#pragma once

#include <opencv2/core.hpp>

/// Steps on whole images that several layers share.
namespace pictures {

/// A 16-bit one-channel image stretched to 8 bits, its own minimum to 0 and maximum to 255. A constant image gives
/// zeros.
cv::Mat stretchTo8Bit(const cv::Mat& image);

/// Throws `cv::Exception` unless both images have two dimensions, the given type and the left one's size.
void requireHalves(const cv::Mat& left, const cv::Mat& right, int type);

/// An image of the left one's rows, twice its columns and the given type, left half and right half filled. Throws
/// `cv::Exception` when an image does not fit its half.
cv::Mat sideBySide(const cv::Mat& left, const cv::Mat& right, int type);

/// Whether two images have the same type, size and bytes. False for images of more than two dimensions.
bool sameBytes(const cv::Mat& a, const cv::Mat& b);

}  // namespace pictures
