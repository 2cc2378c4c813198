#include "camera/StereoRectifyScaled.h"

#include <algorithm>
#include <cmath>
#include <opencv2/calib3d.hpp>

#include "camera/NewCameraMatrix.h"
#include "camera/RotationMatrix.h"

namespace {

/// Both cameras rotated into one frame whose x axis lies along the baseline.
struct CommonFrame {
  cv::Matx33d R1;  ///< From each camera's own frame.
  cv::Matx33d R2;
  double baseline = 0.0;  ///< x of the translation in the common frame, signed.
};

cv::Matx33d rotationOf(const cv::Vec3d& axis_angle) {
  cv::Matx33d rotation;
  cv::Rodrigues(axis_angle, rotation);
  return rotation;
}

/// The rotation of a baseline onto the x axis, into the direction, left or right, that is nearer.
cv::Matx33d ontoRows(const cv::Vec3d& baseline) {
  const double side = baseline[0] > 0.0 ? 1.0 : -1.0;
  cv::Vec3d axis = baseline.cross(cv::Vec3d(side, 0.0, 0.0));
  const double length = cv::norm(axis);
  if (length > 0.0) axis *= std::acos(std::abs(baseline[0]) / cv::norm(baseline)) / length;
  return rotationOf(axis);
}

CommonFrame commonFrame(const cv::Mat& R, const cv::Mat& T) {
  const cv::Vec3d t = vectorOf(T);
  const cv::Matx33d half = rotationOf(rotationVectorOf(R) * -0.5);
  const cv::Matx33d level = ontoRows(half * t);
  const cv::Matx33d R2 = level * half;
  return {level * half.t(), R2, (R2 * t)[0]};
}

void store(const cv::Mat& value, cv::Mat& output) { value.convertTo(output, output.empty() ? CV_64F : output.type()); }

cv::Matx33d virtualMatrix(const LensedCamera& camera, const cv::Size& size, const cv::Matx33d& rotation,
                          const RectificationRequest& request) {
  cv::Mat chosen;
  NewCameraMatrix(camera.K, camera.undistortion, size, cv::Mat(rotation), chosen, request.balance, request.new_size,
                  request.focal_scale);
  return {chosen};
}

}  // namespace

void StereoRectifyScaled(const LensedCamera& left, const LensedCamera& right, const cv::Size& size, const cv::Mat& R,
                         const cv::Mat& T, const RectificationRequest& request, Rectification& rectification) {
  const CommonFrame frame = commonFrame(R, T);
  const cv::Matx33d K1 = virtualMatrix(left, size, frame.R1, request);
  const cv::Matx33d K2 = virtualMatrix(right, size, frame.R2, request);

  const double f = std::min(K1(1, 1), K2(1, 1));
  const double cy = (K1(1, 2) + K2(1, 2)) / 2.0;
  double cx1 = K1(0, 2);
  double cx2 = K2(0, 2);
  if ((request.flags & cv::CALIB_ZERO_DISPARITY) != 0) cx1 = cx2 = (cx1 + cx2) / 2.0;

  const double b = frame.baseline;
  const cv::Matx34d P1(f, 0, cx1, 0, 0, f, cy, 0, 0, 0, 1, 0);
  const cv::Matx34d P2(f, 0, cx2, b * f, 0, f, cy, 0, 0, 0, 1, 0);
  const cv::Matx44d Q(1, 0, 0, -cx1, 0, 1, 0, -cy, 0, 0, 0, f, 0, 0, -1.0 / b, (cx1 - cx2) / b);
  store(cv::Mat(frame.R1), rectification.R1);
  store(cv::Mat(frame.R2), rectification.R2);
  store(cv::Mat(P1), rectification.P1);
  store(cv::Mat(P2), rectification.P2);
  store(cv::Mat(Q), rectification.Q);
}
