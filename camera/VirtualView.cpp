#include "camera/VirtualView.h"

#include <utility>

VirtualView::VirtualView(const cv::Mat& K, CalibratedCamera lens, const cv::Mat& R, const cv::Mat& P)
    : warp_(Warp{K, std::move(lens), cv::Matx33d(P.colRange(0, 3)) * cv::Matx33d(R)}) {}

VirtualView VirtualView::turned(int rows) const {
  VirtualView view = *this;
  view.turned_rows_ = rows;
  return view;
}

std::optional<cv::Point2d> VirtualView::ofReal(const cv::Point2d& pixel) const {
  cv::Point2d virtual_pixel = pixel;
  if (warp_) {
    const cv::Matx33d& K = warp_->K;
    const auto ideal = warp_->lens.undistorted({(pixel.x - K(0, 2)) / K(0, 0), (pixel.y - K(1, 2)) / K(1, 1)});
    if (!ideal) return std::nullopt;
    const cv::Vec3d p = warp_->virtual_from_ideal * cv::Vec3d(ideal->x, ideal->y, 1.0);
    virtual_pixel = {p[0] / p[2], p[1] / p[2]};
  }
  if (!turned_rows_) return virtual_pixel;
  return cv::Point2d(*turned_rows_ - 1 - virtual_pixel.y, virtual_pixel.x);
}

std::optional<cv::Point2d> VirtualView::toReal(const cv::Point2d& pixel_rectified) const {
  cv::Point2d pixel = pixel_rectified;
  if (turned_rows_) pixel = {pixel_rectified.y, *turned_rows_ - 1 - pixel_rectified.x};
  if (!warp_) return pixel;
  const cv::Vec3d ray = warp_->virtual_from_ideal.inv() * cv::Vec3d(pixel.x, pixel.y, 1.0);
  if (!(ray[2] > 0.0)) return std::nullopt;
  const cv::Point2d raw = warp_->lens.distorted({ray[0] / ray[2], ray[1] / ray[2]});
  const cv::Matx33d& K = warp_->K;
  return cv::Point2d(K(0, 0) * raw.x + K(0, 2), K(1, 1) * raw.y + K(1, 2));
}
