#include "Tallowfen/src/markers/MissedSolid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/markers/RingSizes.h"

namespace kestrune {
namespace {

// Radians by which a solid ring may stand off the line of two rings. A big one's line is looser: no distance is tested.
constexpr double kTenDegrees = 0.17453292519943295;
constexpr double kFifteenDegrees = 0.2617993877991494;
// A quarter of the way: three times as far from the second ring as from the first, within so many pixels.
constexpr double kFartherFromSecond = 3.0;
constexpr double kMostOffQuarter = 10.0;
// In the dot's semi-axes. The solid ring stands on a side of the rings' rectangle, which in a slanted view is not quite
// that of the box.
constexpr double kNearOutline = 10.0;

/// Bounding box of the rings' centres. It starts beyond any image and stays there without rings: meant.
struct Box {
  double min_x = 100000.0;
  double max_x = -1.0;
  double min_y = 100000.0;
  double max_y = -1.0;
  double largest = -1.0;  ///< Largest semi-axis.
};

Box boxOf(const std::vector<Ellipse>& rings) {
  Box box;
  for (const Ellipse& ring : rings) {
    box.min_x = std::min(box.min_x, ring.x);
    box.max_x = std::max(box.max_x, ring.x);
    box.min_y = std::min(box.min_y, ring.y);
    box.max_y = std::max(box.max_y, ring.y);
    box.largest = std::max(box.largest, ring.semi_a);
  }
  return box;
}

bool isNearOutline(const Box& box, const Ellipse& dot) {
  const double reach = kNearOutline * dot.semi_a;
  return std::abs(dot.x - box.min_x) < reach || std::abs(dot.x - box.max_x) < reach ||
         std::abs(dot.y - box.min_y) < reach || std::abs(dot.y - box.max_y) < reach;
}

cv::Point2d exactCentreOf(const Ellipse& ellipse) { return {ellipse.x, ellipse.y}; }

bool pointsAlong(const cv::Point2d& u, const cv::Point2d& v, double angle) {
  const double cosine = u.dot(v) / (cv::norm(u) * cv::norm(v));
  return cosine > 0.0 && cosine > std::cos(angle);
}

bool fitsPair(MissedSolidPlace place, const cv::Point2d& at, const cv::Point2d& first, const cv::Point2d& second) {
  switch (place) {
    case MissedSolidPlace::kSmallQuarterWay: {
      const cv::Point2d u = at - first;
      const cv::Point2d v = second - at;
      return std::abs(cv::norm(u) - cv::norm(v) / kFartherFromSecond) < kMostOffQuarter &&
             pointsAlong(u, v, kTenDegrees);
    }
    case MissedSolidPlace::kBigBetween:
      return pointsAlong(at - first, second - at, kFifteenDegrees);
    case MissedSolidPlace::kBigBeyond:
      return pointsAlong(first - at, second - at, kFifteenDegrees);
  }
  return false;
}

bool fitsAnyPair(MissedSolidPlace place, const Ellipse& ellipse, const std::vector<Ellipse>& rings) {
  for (std::size_t i = 0; i < kRingCount; ++i) {
    for (std::size_t j = 0; j < kRingCount; ++j) {
      if (i == j) continue;
      if (fitsPair(place, exactCentreOf(ellipse), exactCentreOf(rings[i]), exactCentreOf(rings[j]))) return true;
    }
  }
  return false;
}

bool isWrongSize(MissedSolidPlace place, double ratio) {
  if (place == MissedSolidPlace::kSmallQuarterWay) return ratio < kSmallMarkerSize || ratio > kBigMarkerSize;
  return ratio < kBigMarkerSize;
}

}  // namespace

void takeLargeDotsNearOutline(const std::vector<Ellipse>& rings, std::vector<Ellipse>& dots,
                              std::vector<Ellipse>& unknowns) {
  const Box box = boxOf(rings);
  std::vector<Ellipse> others;
  for (Ellipse& dot : dots) {
    const bool suspect = isNearOutline(box, dot) && dot.semi_a > box.largest;
    (suspect ? unknowns : others).push_back(std::move(dot));
  }
  dots = std::move(others);
}

void findMissedSolids(const NearbyDots& nearby, const std::vector<Ellipse>& dots, const std::vector<Ellipse>& unknowns,
                      const std::vector<Ellipse>& rings, MissedSolidPlace place, std::vector<Ellipse>& solids,
                      std::vector<Ellipse>& rest) {
  const double dot_size = MeanSemiAxisNear(nearby, dots, rings.front());
  for (const Ellipse& unknown : unknowns) {
    const bool fits = !isWrongSize(place, unknown.semi_a / dot_size) && fitsAnyPair(place, unknown, rings);
    (fits ? solids : rest).push_back(unknown);
  }
}

}  // namespace kestrune
