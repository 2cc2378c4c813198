#pragma once

#include <opencv2/core.hpp>

#include "camera/PointUndistortion.h"

/// Chooses the virtual camera of one side. The focal length is the larger one of `K` times `focal_scale`; no extent of
/// the undistorted image enters it. The centre puts the mean of the four undistorted mid-edge points into the middle of
/// the image. `balance` is accepted and has no effect. A `new_size` positive in both axes rescales the result to it.
/// `new_K` gets a 3x3 matrix in its own type, or in that of `K` when it is empty.
void NewCameraMatrix(const cv::Mat& K, const PointUndistortion& undistortion, const cv::Size& size,
                     const cv::Mat& rotation, cv::Mat& new_K, double balance, const cv::Size& new_size,
                     double focal_scale);
