#include "Tallowfen/src/zernike/ZernikeEdgeRefine.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <numbers>
#include <opencv2/core/hal/intrin.hpp>
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

// Points whose moments are formed at once: a sum waits for its last addition, sums of others need not.
constexpr std::size_t kAtOnce = 4;

/// Each grey as a number: looked up faster than converted.
constexpr auto kGreys = [] {
  std::array<double, 256> greys{};
  for (std::size_t grey = 0; grey < greys.size(); ++grey) greys[grey] = static_cast<double>(grey);
  return greys;
}();

/// A moment of four neighbourhoods. Each sum has the order of its own neighbourhood's pixels.
struct FourSums {
  cv::v_float64x2 first = cv::v_setzero_f64(), second = cv::v_setzero_f64();

  void add(const cv::v_float64x2& first_greys, const cv::v_float64x2& second_greys, double weight) {
    const cv::v_float64x2 weights = cv::v_setall_f64(weight);
    first = first + first_greys * weights;
    second = second + second_greys * weights;
  }
  std::array<double, kAtOnce> values() const {
    std::array<double, kAtOnce> result{};
    cv::v_store(result.data(), first);
    cv::v_store(&result[2], second);
    return result;
  }
};

/// What a pixel of the neighbourhood adds to the moments for each grey.
struct CellWeights {
  double x, y, radial;
};

std::vector<CellWeights> weightsOf(const ZernikeMasks& masks) {
  std::vector<CellWeights> cells;
  for (std::size_t k = 0; k < masks.M_x.size(); ++k) cells.push_back({masks.M_x[k], masks.M_y[k], masks.M_20[k]});
  return cells;
}

/// The neighbourhoods' first pixels in a row of theirs.
using Corners = std::array<const std::uint8_t*, kAtOnce>;

std::array<EdgeMoments, kAtOnce> momentsFrom(Corners row, std::ptrdiff_t row_step, int size, const CellWeights* cell) {
  FourSums x, y, radial;
  for (int i = 0; i < size; ++i, cell += size) {
    const int corner = i == 0 || i == size - 1 ? 1 : 0;  // Outside of the circle: adds nothing.
    for (int j = corner; j < size - corner; ++j) {
      const cv::v_float64x2 first(kGreys[row[0][j]], kGreys[row[1][j]]), second(kGreys[row[2][j]], kGreys[row[3][j]]);
      x.add(first, second, cell[j].x);
      y.add(first, second, cell[j].y);
      radial.add(first, second, cell[j].radial);
    }
    for (const std::uint8_t*& pixels : row) pixels += row_step;
  }
  std::array<EdgeMoments, kAtOnce> moments;
  for (std::size_t k = 0; k < kAtOnce; ++k) moments[k] = {x.values()[k], y.values()[k], radial.values()[k]};
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

/// Of points that have a neighbourhood, in their order.
std::vector<cv::Point2d> edgePoints(const cv::Mat& image, const std::vector<cv::Point>& points, int size,
                                    const std::vector<CellWeights>& cells) {
  const int half = (size - 1) / 2;
  std::vector<cv::Point2d> edge_points;
  edge_points.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); i += kAtOnce) {
    Corners corners{};
    for (std::size_t k = 0; k < kAtOnce; ++k) {
      const cv::Point& point = points[std::min(i + k, points.size() - 1)];
      corners[k] = image.ptr<std::uint8_t>(point.y - half) + (point.x - half);
    }
    const auto moments = momentsFrom(corners, static_cast<std::ptrdiff_t>(image.step[0]), size, cells.data());
    for (std::size_t k = i; k < std::min(i + kAtOnce, points.size()); ++k) {
      if (const auto edge = edgePoint(points[k], moments[k - i], size)) edge_points.push_back(*edge);
    }
  }
  return edge_points;
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
  const std::vector<CellWeights> cells = weightsOf(zernikeMasks(size));
  const int half = (size - 1) / 2;
  std::vector<std::vector<cv::Point2d>> refined;
  std::vector<cv::Point> points;
  for (const std::vector<cv::Point>& contour : contours) {
    points.clear();
    std::ranges::copy_if(contour, std::back_inserter(points),
                         [&](const cv::Point& point) { return hasNeighbourhood(image, point, half); });
    std::vector<cv::Point2d> edge_points = edgePoints(image, points, size, cells);
    if (edge_points.size() >= kFewestEdgePoints) refined.push_back(std::move(edge_points));
  }
  return refined;
}

}  // namespace kestrune
