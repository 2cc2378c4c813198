#pragma once

#include <opencv2/core.hpp>

#include "camera/CameraIntrinsicsBase.h"

/// Maps of a virtual camera for `cv::remap`: for each of its pixels the raw pixel of the real camera, through the
/// polynomial lens. `rotation` is 3x3, a 3-vector of axis times angle, or empty (identity); of `projection` the first
/// three columns count, empty is the identity; a singular product gives the zero inverse. A pixel whose ray does not
/// point forward maps to infinity. `map_type` is `CV_32FC1` (two float maps) or `CV_16SC2` (fixed point, 5 fractional
/// bits, remainders in `map2`); any value below 1 means `CV_16SC2`. Throws `cv::Exception` for another type.
void InitPolyRectifyMap(const cv::Mat& K, const CameraIntrinsicsBase& camera, const cv::Mat& rotation,
                        const cv::Mat& projection, const cv::Size& size, int map_type, cv::Mat& map1, cv::Mat& map2);
