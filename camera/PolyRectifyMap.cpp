#include "camera/PolyRectifyMap.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <opencv2/imgproc.hpp>
#include <span>
#include <vector>

#include "camera/RotationMatrix.h"
#include "platform/WideLoops.h"

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

/// One row of the virtual camera: its rays, then their raw pixels.
struct Row {
  explicit Row(int width) : x(static_cast<std::size_t>(width)), y(x), forward(x) {}

  std::vector<double> x, y;
  std::vector<double> forward;  ///< The rays' third component.
};

/// Summed along the row: the roundings of the sum are part of the maps.
void sendRays(const cv::Matx33d& inverse, int row, Row& rays) {
  const cv::Vec3d along_row(inverse(0, 0), inverse(1, 0), inverse(2, 0));
  cv::Vec3d ray = inverse * cv::Vec3d(0.0, row, 1.0);
  for (std::size_t column = 0; column < rays.x.size(); ++column, ray += along_row) {
    rays.x[column] = ray[0];
    rays.y[column] = ray[1];
    rays.forward[column] = ray[2];
  }
}

PLP_WIDE_LOOPS void divide(std::span<const double> dividends, std::span<const double> divisors,
                           std::span<double> quotients) {
  for (std::size_t k = 0; k < quotients.size(); ++k) quotients[k] = dividends[k] / divisors[k];
}

PLP_WIDE_LOOPS void scaleAndShift(double scale, double shift, std::span<double> values) {
  for (double& value : values) value = scale * value + shift;
}

PLP_WIDE_LOOPS void narrow(std::span<const double> values, std::span<float> narrowed) {
  for (std::size_t k = 0; k < values.size(); ++k) narrowed[k] = static_cast<float>(values[k]);
}

/// Of the rays that point forward; what it makes of the others is not looked at.
void followThroughLens(const cv::Matx33d& K, const CameraIntrinsicsBase& camera, const Row& rays, Row& pixels) {
  divide(rays.x, rays.forward, pixels.x);
  divide(rays.y, rays.forward, pixels.y);
  camera.AddDistortionToAll({pixels.x, pixels.y});
  scaleAndShift(K(0, 0), K(0, 2), pixels.x);
  scaleAndShift(K(1, 1), K(1, 2), pixels.y);
}

void sendBackwardsAway(const Row& rays, Row& pixels) {
  // Sums of one step never turn back: when both ends point forward, all do.
  if (rays.forward.empty() || (rays.forward.front() > 0.0 && rays.forward.back() > 0.0)) return;
  for (std::size_t column = 0; column < rays.x.size(); ++column) {
    if (rays.forward[column] > 0.0) continue;
    pixels.x[column] = infinityOpposite(rays.x[column]);
    pixels.y[column] = infinityOpposite(rays.y[column]);
  }
}

/// Clamped to the range of an integer before the conversion, so that an infinite value stays outside of the image.
int fixedPoint(double value) {
  constexpr double kSubPixels = static_cast<int>(cv::INTER_TAB_SIZE);
  constexpr double kLowest = std::numeric_limits<int>::min();
  constexpr double kHighest = std::numeric_limits<int>::max();
  return cv::saturate_cast<int>(std::clamp(value * kSubPixels, kLowest, kHighest));
}

void storeFixed(const Row& pixels, int row, cv::Mat& whole, cv::Mat& remainder) {
  constexpr int kFraction = cv::INTER_TAB_SIZE - 1;
  for (int column = 0; column < whole.cols; ++column) {
    const int u = fixedPoint(pixels.x[static_cast<std::size_t>(column)]);
    const int v = fixedPoint(pixels.y[static_cast<std::size_t>(column)]);
    whole.at<cv::Vec2s>(row, column) = {cv::saturate_cast<short>(u >> cv::INTER_BITS),
                                        cv::saturate_cast<short>(v >> cv::INTER_BITS)};
    remainder.at<ushort>(row, column) = static_cast<ushort>((v & kFraction) * cv::INTER_TAB_SIZE + (u & kFraction));
  }
}

void storeFloats(const Row& pixels, int row, cv::Mat& columns, cv::Mat& rows) {
  narrow(pixels.x, {columns.ptr<float>(row), pixels.x.size()});
  narrow(pixels.y, {rows.ptr<float>(row), pixels.y.size()});
}

}  // namespace

void InitPolyRectifyMap(const cv::Mat& K, const CameraIntrinsicsBase& camera, const cv::Mat& rotation,
                        const cv::Mat& projection, const cv::Size& size, int map_type, cv::Mat& map1, cv::Mat& map2) {
  const int type = map_type < 1 ? CV_16SC2 : map_type;
  CV_CheckType(type, type == CV_16SC2 || type == CV_32FC1, "maps are of fixed point or of floats");
  map1.create(size, type);
  map2.create(size, type == CV_16SC2 ? CV_16UC1 : CV_32FC1);

  const cv::Matx33d k(K);
  const cv::Matx33d inverse = (projectionMatrix(projection) * rotationMatrixOf(rotation)).inv();
  Row rays(size.width);
  Row pixels(size.width);
  for (int row = 0; row < size.height; ++row) {
    sendRays(inverse, row, rays);
    followThroughLens(k, camera, rays, pixels);
    sendBackwardsAway(rays, pixels);
    if (type == CV_16SC2) {
      storeFixed(pixels, row, map1, map2);
    } else {
      storeFloats(pixels, row, map1, map2);
    }
  }
}
