#include "Tallowfen/src/markers/OrderQuad.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

#include "Tallowfen/src/ellipses/Centres.h"

namespace kestrune {

namespace {

// Corners of about 70 to 110 degrees are below; the board's right angles are within them unless the view is very
// slanted.
constexpr double kSlantedCosine = 0.35;
constexpr std::size_t kCorners = 4;

using Points = std::vector<cv::Point2f>;

cv::Point2f meanOf(const Points& points) {
  cv::Point2f sum(0.0F, 0.0F);
  for (const cv::Point2f& point : points) sum += point;
  constexpr auto kCount = static_cast<float>(kCorners);
  return {sum.x / kCount, sum.y / kCount};
}

std::size_t farthestFrom(const cv::Point2f& centre, const Points& points) {
  std::size_t farthest = 0;
  float greatest = -1.0F;
  for (std::size_t i = 0; i < points.size(); ++i) {
    const cv::Point2f offset = points[i] - centre;
    const float distance = std::sqrt(offset.x * offset.x + offset.y * offset.y);
    if (distance > greatest) {
      greatest = distance;
      farthest = i;
    }
  }
  return farthest;
}

// The corner across: the one that is seen from the start in the direction of the mean.
std::optional<std::size_t> oppositeOf(std::size_t start, const cv::Point2f& centre, const Points& points) {
  std::optional<std::size_t> opposite;
  float greatest = -1.0F;
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (i == start || points[i] == points[start]) continue;
    const float cosine = std::abs(cosineBetween(points[i] - points[start], centre - points[start]));
    if (cosine > greatest) {
      greatest = cosine;
      opposite = i;
    }
  }
  return opposite;
}

std::array<std::size_t, 2> othersThan(std::size_t a, std::size_t b) {
  std::array<std::size_t, 2> others{};
  std::size_t count = 0;
  for (std::size_t i = 0; i < kCorners; ++i) {
    if (i != a && i != b) others[count++] = i;
  }
  return others;
}

}  // namespace

bool OrderQuad(const std::vector<cv::Point2f>& points, std::vector<cv::Point2f>& ordered) {
  if (points.size() != kCorners) return false;
  const cv::Point2f centre = meanOf(points);
  const std::size_t start = farthestFrom(centre, points);
  const std::optional<std::size_t> opposite = oppositeOf(start, centre, points);
  if (!opposite) return false;
  const cv::Point2f a = points[start];
  const cv::Point2f b = points[*opposite];
  const auto [first, second] = othersThan(start, *opposite);
  const cv::Point2f o0 = points[first];
  const cv::Point2f o1 = points[second];
  const float k0 = std::abs(cosineBetween(a - o0, b - o0));
  const float k1 = std::abs(cosineBetween(a - o1, b - o1));
  if (k0 > k1 && k1 < kSlantedCosine) {
    ordered = {a, o1, b, o0};
    return true;
  }
  if (k1 > k0 && k0 < kSlantedCosine) {
    ordered = {a, o0, b, o1};
    return true;
  }
  return false;
}

}  // namespace kestrune
