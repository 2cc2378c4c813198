#pragma once

#include <functional>
#include <opencv2/core.hpp>

#include "camera/CameraIntrinsicsBase.h"

/// How a lens model takes raw pixels (one row of point pairs) to normalised points of the rotated camera.
using PointUndistortion =
    std::function<void(const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K, const cv::Mat& rotation)>;

/// The five- and eight-coefficient model, by OpenCV's inverse.
PointUndistortion brownUndistortion(const cv::Mat& D);
/// The four-coefficient fisheye (Kannala and Brandt 2006), by OpenCV's inverse.
PointUndistortion fisheyeUndistortion(const cv::Mat& D);
/// The polynomial camera. `camera` must outlive the function.
PointUndistortion polyUndistortion(const CameraIntrinsicsBase& camera);
