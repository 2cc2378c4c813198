#include "polar/measure/EccentricityCompensation.h"

#include "polar/geometry/FitConicCentre.h"

namespace {

/// The pixel that a ray meets after `turn`, a matrix from rays of this view to homogeneous pixels of the other.
cv::Point2f turned(const cv::Point2f& pixel, const cv::Matx33d& K, const cv::Matx33d& turn) {
  const cv::Vec3d ray((pixel.x - K(0, 2)) / K(0, 0), (pixel.y - K(1, 2)) / K(1, 1), 1.0);
  const cv::Vec3d p = turn * ray;
  return {static_cast<float>(p[0] / p[2]), static_cast<float>(p[1] / p[2])};
}

}  // namespace

cv::Point2f compensatedCentre(const std::vector<cv::Point2f>& edge_pixels, const cv::Matx33d& K, const cv::Matx33d& R) {
  const cv::Matx33d to_parallel = K * R.t();
  std::vector<cv::Point2f> turned_edge;
  turned_edge.reserve(edge_pixels.size());
  for (const cv::Point2f& pixel : edge_pixels) turned_edge.push_back(turned(pixel, K, to_parallel));
  // A fit that fails leaves the origin, and the origin is turned back like any other centre: that is meant.
  cv::Point2f turned_centre(0.0F, 0.0F);
  FitConicCentre(turned_edge, turned_centre);
  return turned(turned_centre, K, K * R);
}
