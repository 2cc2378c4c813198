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

/// Raw pixels to normalised points of the rotated camera, for the choice of a virtual camera's centre. Meant: the
/// inverse of the lens is computed and not used, so the points keep their distortion. `pixels`: pairs of single or
/// double precision; `normalised` gets the same size and type, the calculation is in double. `K` and `rotation` are
/// 3x3; an empty rotation is the identity. Throws `cv::Exception` for any other shape.
void UndistortPointsPoly(const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K,
                         const CameraIntrinsicsBase& camera, const cv::Mat& rotation);
