#include "Tallowfen/src/numbering/MarkerIndex.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/Centres.h"
#include "Tallowfen/src/markers/OrderQuad.h"
#include "Tallowfen/src/numbering/ModelCoordinates.h"
#include "platform/Console.h"

namespace kestrune {

namespace {

using Rings = std::array<cv::Point2f, kRingCount>;

// The solid ring and the two rings of its side are on one line, within 14 degrees.
constexpr double kSameLine = 0.97;

// The four rings nearest to the solid ring, nearest first.
Rings nearestRings(const cv::Point2f& solid, const std::vector<cv::Point2f>& rings) {
  std::vector<float> distances;
  distances.reserve(rings.size());
  for (const cv::Point2f& ring : rings) {
    const cv::Point2f offset = ring - solid;
    distances.push_back(std::sqrt(offset.x * offset.x + offset.y * offset.y));
  }
  cv::Mat order;
  cv::sortIdx(cv::Mat(1, static_cast<int>(distances.size()), CV_32F, distances.data()), order,
              cv::SORT_EVERY_ROW + cv::SORT_ASCENDING);
  Rings nearest;
  for (int i = 0; i < static_cast<int>(kRingCount); ++i) {
    nearest[static_cast<std::size_t>(i)] = rings[static_cast<std::size_t>(order.at<int>(i))];
  }
  return nearest;
}

// Cosine of the angle at `apex` between two points; -1 where there is no angle.
float cosineAt(const cv::Point2f& p, const cv::Point2f& q, const cv::Point2f& apex) {
  if (p == apex || p == q) return -1.0F;
  return cosineBetween(p - apex, q - apex);
}

// Which of the two far rings is the upper right one: the third stands across from the second, the fourth from the
// first.
bool thirdIsUpperRight(const cv::Point2f& solid, const Rings& r) {
  return cosineAt(r[3], solid, r[0]) > cosineAt(r[2], solid, r[0]) &&
         cosineAt(r[2], solid, r[1]) > cosineAt(r[3], solid, r[1]);
}

// The rings in the order of the layout, clockwise from the upper left one.
bool orderRings(const MarkerSizes& sizes, const cv::Point2f& solid, const Rings& r, Rings& ordered) {
  if (sizes.rings_small && sizes.solid_big) {
    ordered = {r[0], r[2], r[3], r[1]};
    return true;
  }
  if (cosineAt(solid, r[0], r[1]) < kSameLine) {
    console::err() << "Failed in Colinear check of Ring1,Ring4 and SolidRing! \n";
    return false;
  }
  ordered = thirdIsUpperRight(solid, r) ? Rings{r[0], r[2], r[3], r[1]} : Rings{r[0], r[3], r[2], r[1]};
  return true;
}

}  // namespace

bool GetCircleIndexRings(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& solids,
                         const std::vector<Ellipse>& rings, std::vector<Ellipse>& all, MarkerSeeds& seeds) {
  if (solids.empty() || rings.size() < kRingCount || all.empty()) return false;
  const cv::Point2f solid = centreOf(solids[0]);
  Rings ordered;
  if (!orderRings(sizes, solid, nearestRings(solid, centresOf(rings)), ordered)) return false;
  seeds.marker_image_points = {solid, ordered[0], ordered[1], ordered[2], ordered[3]};
  seeds.marker_model_points = MarkerLayout(config, sizes, static_cast<float>(kGridStep));
  return seedFromMarkers(config, sizes, all, seeds);
}

bool GetCircleIndexBigDots(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& bigs,
                           std::vector<Ellipse>& all, MarkerSeeds& seeds) {
  if (bigs.empty() || all.empty()) return false;
  // The ordering takes four points only, so there are as many of them as of the layout.
  if (!OrderQuad(centresOf(bigs), seeds.marker_image_points)) return false;
  seeds.marker_model_points = BigDotLayout(config, kGridStep, kGridStep);
  return seedFromMarkers(config, sizes, all, seeds);
}

}  // namespace kestrune
