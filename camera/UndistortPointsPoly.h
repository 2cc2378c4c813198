#pragma once

#include <opencv2/core.hpp>

#include "camera/CameraIntrinsicsBase.h"

/// Raw pixels to normalised points of the rotated camera, for the choice of a virtual camera's centre. The lens is
/// asked and its answer left unused: the points keep their distortion. `pixels`: pairs of single or double precision;
/// `normalised` gets the same size and type, the calculation is in double. `K` and `rotation` are 3x3; an empty
/// rotation is the identity. Throws `cv::Exception` for any other shape.
void UndistortPointsPoly(const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K,
                         const CameraIntrinsicsBase& camera, const cv::Mat& rotation);
