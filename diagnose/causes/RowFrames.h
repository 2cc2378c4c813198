#pragma once

#include <opencv2/core.hpp>

#include "camera/LensModel.h"
#include "input/StereoCalibParams.h"

/// The turns from each camera's own frame into the rectified one, in double precision: OpenCV's stereo rectification,
/// with which the library's own agrees for cameras side by side.
struct RowFrames {
  cv::Matx33d left, right;
};

/// X_right = R X_left + T.
RowFrames rowFrames(const cv::Matx33d& R, const cv::Vec3d& T);

/// The angles of a rotation Rz Rx Ry in radians, if that about x is less than a quarter of a turn.
cv::Vec3d anglesOf(const cv::Matx33d& rotation);

/// The focal length of the rectified pictures, pixels: what a slope of 1 makes in rows.
double rowFocal(const StereoCalibParams& calib, LensModel model, double f_scale);
