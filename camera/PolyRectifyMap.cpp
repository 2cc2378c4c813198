#include "camera/PolyRectifyMap.h"

#include <algorithm>
#include <limits>
#include <opencv2/imgproc.hpp>

#include "camera/RotationMatrix.h"

namespace {

cv::Matx33d projectionMatrix(const cv::Mat& projection) {
  if (projection.empty()) return cv::Matx33d::eye();
  return {projection.colRange(0, 3)};
}

/// The pixel of a ray that points backwards: infinity, on the side opposite to the ray's component.
double infinityOpposite(double component) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  return component > 0.0 ? -kInfinity : kInfinity;
}

cv::Point2d rawPixel(const cv::Matx33d& K, const CameraIntrinsicsBase& camera, const cv::Vec3d& ray) {
  if (!(ray[2] > 0.0)) return {infinityOpposite(ray[0]), infinityOpposite(ray[1])};
  cv::Point2d raw;
  camera.AddDistortion({ray[0] / ray[2], ray[1] / ray[2]}, raw);
  return {K(0, 0) * raw.x + K(0, 2), K(1, 1) * raw.y + K(1, 2)};
}

/// Clamped to the range of an integer before the conversion, so that an infinite value stays outside of the image.
int fixedPoint(double value) {
  constexpr double kSubPixels = static_cast<int>(cv::INTER_TAB_SIZE);
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  return cv::saturate_cast<int>(std::clamp(value * kSubPixels, kLowest, kHighest));
}

void storeFixed(const cv::Point2d& pixel, int row, int column, cv::Mat& whole, cv::Mat& remainder) {
  const int u = fixedPoint(pixel.x);
  const int v = fixedPoint(pixel.y);
  constexpr int kFraction = cv::INTER_TAB_SIZE - 1;
  whole.at<cv::Vec2s>(row, column) = {cv::saturate_cast<short>(u >> cv::INTER_BITS),
                                      cv::saturate_cast<short>(v >> cv::INTER_BITS)};
  remainder.at<ushort>(row, column) = static_cast<ushort>((v & kFraction) * cv::INTER_TAB_SIZE + (u & kFraction));
}

void storeFloat(const cv::Point2d& pixel, int row, int column, cv::Mat& columns, cv::Mat& rows) {
  columns.at<float>(row, column) = static_cast<float>(pixel.x);
  rows.at<float>(row, column) = static_cast<float>(pixel.y);
}

}  // namespace

void InitPolyRectifyMap(const cv::Mat& K, const CameraIntrinsicsBase& camera, const cv::Mat& rotation,
                        const cv::Mat& projection, const cv::Size& size, int map_type, cv::Mat& map1, cv::Mat& map2) {
  const int type = map_type < 1 ? CV_16SC2 : map_type;
  CV_CheckType(type, type == CV_16SC2 || type == CV_32FC1, "maps are of fixed point or of floats");
  map1.create(size, type);
  map2.create(size, type == CV_16SC2 ? CV_16UC1 : CV_32FC1);
  const auto store = type == CV_16SC2 ? storeFixed : storeFloat;

  const cv::Matx33d k(K);
  const cv::Matx33d inverse = (projectionMatrix(projection) * rotationMatrixOf(rotation)).inv();
  const cv::Vec3d along_row(inverse(0, 0), inverse(1, 0), inverse(2, 0));
  for (int row = 0; row < size.height; ++row) {
    // Summed along the row: the roundings of the sum are part of the maps.
    cv::Vec3d ray = inverse * cv::Vec3d(0.0, row, 1.0);
    for (int column = 0; column < size.width; ++column, ray += along_row) {
      store(rawPixel(k, camera, ray), row, column, map1, map2);
    }
  }
}
