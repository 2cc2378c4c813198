#include "diagnose/causes/RowFrames.h"

#include <algorithm>
#include <cmath>
#include <opencv2/calib3d.hpp>

namespace {

double scaledFocal(const CameraCalib& camera, double f_scale) {
  const double fx = camera.intrinsics[0];
  const double fy = camera.intrinsics[1];
  return std::max(fx, fy) * f_scale * fy / fx;
}

}  // namespace

RowFrames rowFrames(const cv::Matx33d& R, const cv::Vec3d& T) {
  // The turns depend on neither lens nor size.
  const cv::Matx33d pinhole = cv::Matx33d::eye();
  const cv::Mat no_lens;
  cv::Matx33d left;
  cv::Matx33d right;
  cv::Mat P1;
  cv::Mat P2;
  cv::Mat Q;
  cv::stereoRectify(pinhole, no_lens, pinhole, no_lens, cv::Size(2, 2), R, T, left, right, P1, P2, Q);
  return {left, right};
}

cv::Vec3d anglesOf(const cv::Matx33d& r) {
  return {std::asin(std::clamp(r(2, 1), -1.0, 1.0)), std::atan2(-r(2, 0), r(2, 2)), std::atan2(-r(0, 1), r(1, 1))};
}

double rowFocal(const StereoCalibParams& calib, LensModel model, double f_scale) {
  const bool is_brown = model == LensModel::kBrownFive || model == LensModel::kBrownEight;
  if (is_brown && f_scale == 1.0) return 0.5 * (calib.left.intrinsics[1] + calib.right.intrinsics[1]);
  return std::min(scaledFocal(calib.left, f_scale), scaledFocal(calib.right, f_scale));
}
