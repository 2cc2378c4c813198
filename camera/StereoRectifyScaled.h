#pragma once

#include <opencv2/core.hpp>

#include "camera/PointUndistortion.h"

/// One camera of a pair, and how its lens is removed.
struct LensedCamera {
  cv::Mat K;  ///< 3x3.
  PointUndistortion undistortion;
};

/// The virtual pair. A matrix that comes in non-empty keeps its type, an empty one becomes double.
struct Rectification {
  cv::Mat R1, R2;  ///< 3x3, from each camera's frame into the common one.
  cv::Mat P1, P2;  ///< 3x4, projections of the common frame.
  cv::Mat Q;       ///< 4x4, (column, row, disparity, 1) to a point of the left virtual camera.
};

/// What the caller asks of the virtual pair.
struct RectificationRequest {
  int flags = 0;         ///< `cv::CALIB_ZERO_DISPARITY`: both principal points get the same column.
  cv::Size new_size;     ///< Positive in both axes: size of the virtual images; else that of the real ones.
  double balance = 0.0;  ///< Accepted, has no effect.
  double focal_scale = 1.0;
};

/// Rotates each camera half way towards the other, then both so that the baseline lies along the rows (Hartley and
/// Zisserman 2003, 11.12), and gives them one focal length and one row of the principal points. `R` is 3x3 or a
/// 3-vector of axis times angle; X_right = R X_left + T. A baseline of length 0 gives NaN.
void StereoRectifyScaled(const LensedCamera& left, const LensedCamera& right, const cv::Size& size, const cv::Mat& R,
                         const cv::Mat& T, const RectificationRequest& request, Rectification& rectification);
