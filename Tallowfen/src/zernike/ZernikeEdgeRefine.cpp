#include "Tallowfen/src/zernike/ZernikeEdgeRefine.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <utility>

#include "Tallowfen/src/zernike/ZernikeMasks.h"

namespace kestrune {

namespace {

// Of a contour; with fewer there is no outline to speak of.
constexpr std::size_t kFewestEdgePoints = 8;
// Grey levels: a hundredth of half the range. Weaker steps are noise.
constexpr double kWeakestStep = (255 - 128) * 0.01;
// Of half the neighbourhood's width. A step farther off leaves too little of its other side within.
constexpr double kFarthestStep = 1 / std::numbers::sqrt2;

EdgeMoments momentsAround(const cv::Mat& image, const cv::Point& point, const ZernikeMasks& masks) {
  const int half = (masks.size - 1) / 2;
  // A row is as long as the image is wide: the picture is continuous.
  const std::uint8_t* row = image.data + static_cast<std::ptrdiff_t>(point.y - half) * image.cols + (point.x - half);
  EdgeMoments moments;
  std::size_t cell = 0;
  for (int i = 0; i < masks.size; ++i, row += image.cols) {
    for (int j = 0; j < masks.size; ++j, ++cell) {
      const double grey = row[j];
      moments.x += grey * masks.M_x[cell];
      moments.y += grey * masks.M_y[cell];
      moments.radial += grey * masks.M_20[cell];
    }
  }
  return moments;
}

// The step's height is 3/2 of the turned moment over (1 - l^2)^(3/2), l the distance (Ghosal and Mehrotra 1993): never
// less than without the divisor, whose power only the weak ones need.
bool isStrong(double across, double distance) {
  const double least = across * 1.5;
  return std::abs(least) > kWeakestStep || std::abs(least / std::pow(1 - distance * distance, 1.5)) > kWeakestStep;
}

bool hasNeighbourhood(const cv::Mat& image, const cv::Point& point, int half) {
  return point.y - half > 0 && point.y + half < image.rows - 1 && point.x - half > 0 && point.x + half < image.cols - 1;
}

}  // namespace

std::optional<cv::Point2d> edgePoint(const cv::Point& point, const EdgeMoments& moments, int size) {
  const double phi = std::atan2(moments.y, moments.x);
  const double across = std::cos(phi) * moments.x + std::sin(phi) * moments.y;
  const double distance = moments.radial / across;
  if (!(std::abs(distance) < kFarthestStep)) return std::nullopt;
  if (!isStrong(across, distance)) return std::nullopt;
  const double shift = size * 0.5 * distance;
  return cv::Point2d(point.x + std::cos(phi) * shift, point.y + std::sin(phi) * shift);
}

std::vector<std::vector<cv::Point2d>> ZernikeEdgeRefine(const cv::Mat& image,
                                                        const std::vector<std::vector<cv::Point>>& contours, int size) {
  const ZernikeMasks& masks = zernikeMasks(size);
  std::vector<std::vector<cv::Point2d>> refined;
  for (const std::vector<cv::Point>& contour : contours) {
    std::vector<cv::Point2d> edge_points;
    edge_points.reserve(contour.size());
    for (const cv::Point& point : contour) {
      if (!hasNeighbourhood(image, point, (size - 1) / 2)) continue;
      const auto edge = edgePoint(point, momentsAround(image, point, masks), size);
      if (edge) edge_points.push_back(*edge);
    }
    if (edge_points.size() >= kFewestEdgePoints) refined.push_back(std::move(edge_points));
  }
  return refined;
}

}  // namespace kestrune
