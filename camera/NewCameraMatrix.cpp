#include "camera/NewCameraMatrix.h"

#include <algorithm>

namespace {

cv::Point2d meanOfMidEdges(const cv::Mat& K, const PointUndistortion& undistortion, const cv::Size& size,
                           const cv::Mat& rotation) {
  const int mid_column = size.width / 2;  // Whole pixels: the halves are truncated.
  const int mid_row = size.height / 2;
  const cv::Vec2d top(mid_column, 0);
  const cv::Vec2d right(size.width, mid_row);
  const cv::Vec2d bottom(mid_column, size.height);
  const cv::Vec2d left(0, mid_row);
  const cv::Mat mid_edges = (cv::Mat_<cv::Vec2d>(1, 4) << top, right, bottom, left);
  cv::Mat normalised;
  undistortion(mid_edges, normalised, K, rotation);
  const cv::Scalar mean = cv::mean(normalised);
  return {mean[0], mean[1]};
}

}  // namespace

void NewCameraMatrix(const cv::Mat& K, const PointUndistortion& undistortion, const cv::Size& size,
                     const cv::Mat& rotation, cv::Mat& new_K, double /*balance*/, const cv::Size& new_size,
                     double focal_scale) {
  const cv::Matx33d k(K);
  const double width = size.width;
  const double height = size.height;
  const double aspect = k(0, 0) / k(1, 1);
  cv::Point2d mean = meanOfMidEdges(K, undistortion, size, rotation);
  mean.x *= aspect;

  double fx = std::max(k(0, 0), k(1, 1)) * focal_scale;
  double fy = fx / aspect;
  double cx = width / 2.0 - fx * mean.x;
  double cy = (height * aspect / 2.0 - fx * mean.y) / aspect;
  if (new_size.width > 0 && new_size.height > 0) {
    const double along_x = new_size.width / width;
    const double along_y = new_size.height / height;
    fx *= along_x;
    cx *= along_x;
    fy *= along_y;
    cy *= along_y;
  }
  const cv::Matx33d chosen(fx, 0.0, cx, 0.0, fy, cy, 0.0, 0.0, 1.0);
  cv::Mat(chosen).convertTo(new_K, new_K.empty() ? K.type() : new_K.type());
}
