#pragma once

#include <opencv2/core.hpp>

/// A rotation given as a 3x3 matrix or as a 3-vector of axis times angle (none below the double-precision epsilon);
/// empty is the identity. Throws `cv::Exception` for any other shape.
cv::Matx33d rotationMatrixOf(const cv::Mat& rotation);

/// Axis times angle in radians. Three elements are taken as they stand. Throws `cv::Exception` for any other shape than
/// these or 3x3.
cv::Vec3d rotationVectorOf(const cv::Mat& rotation);

/// Three numbers in any of OpenCV's shapes (a row, a column, one element of three channels), widened. Throws
/// `cv::Exception` otherwise.
cv::Vec3d vectorOf(const cv::Mat& vector);
