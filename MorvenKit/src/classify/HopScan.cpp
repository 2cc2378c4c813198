#include "MorvenKit/src/classify/HopScan.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <ostream>

#include "MorvenKit/src/classify/ScanLine.h"
#include "platform/Console.h"

namespace kestrune::morvenkit {

namespace {

constexpr std::size_t kRays = 8;
// Rays that must agree on a dot or a ring. Two may go astray: a vertical one counts for nothing.
constexpr int kAgreeing = 6;
// Five are enough for a core, the smallest thing to hit.
constexpr int kAgreeingOnCore = 5;

/// How many rays gave 1, 2 and 3 transitions; rays with other counts are left out.
struct Tally {
  std::array<int, 3> rays = {0, 0, 0};
  bool any = false;

  void add(int transitions) {
    any = true;
    if (transitions >= 1 && transitions <= 3) ++rays.at(static_cast<std::size_t>(transitions - 1));
  }
};

Tally tallyRays(const Contour& contour, const cv::Point2f& centroid, const cv::Mat& binary) {
  Tally tally;
  const std::size_t stride = contour.size() / kRays;
  for (std::size_t k = 1; k <= kRays; ++k) {
    const cv::Point2f end = contour.at(stride * k - 1);
    if (const auto transitions = ScanLine(centroid, end, binary)) tally.add(*transitions);
  }
  return tally;
}

ContourStatus judge(const Tally& tally) {
  const auto [one, two, three] = tally.rays;
  if (one >= kAgreeing) return kStatusDot;
  if (two >= kAgreeing) return kStatusRing;
  if (three >= kAgreeingOnCore) return kStatusSolidRing;
  return three == 0 ? kStatusLost : kStatusUnknown;
}

}  // namespace

cv::Point2f contourCentroid(const Contour& contour) {
  // The moments of the polygon, as cv::moments rounds them; of whole pixels all sums are exact.
  constexpr double kHalf = 0.5, kSixth = 1.0 / 6.0;
  std::int64_t area = 0, area_x = 0, area_y = 0;
  cv::Point from = contour.empty() ? cv::Point() : contour.back();
  for (const cv::Point& to : contour) {
    const std::int64_t across = std::int64_t{from.x} * to.y - std::int64_t{from.y} * to.x;
    area += across;
    area_x += across * (from.x + to.x);
    area_y += across * (from.y + to.y);
    from = to;
  }
  const double m00 = static_cast<double>(area) * kHalf;
  return {static_cast<float>(static_cast<double>(area_x) * kSixth / m00),
          static_cast<float>(static_cast<double>(area_y) * kSixth / m00)};
}

ContourStatus HopScan(int index, const Contour& contour, const cv::Point2f& centroid, const cv::Mat& binary) {
  const Tally tally = tallyRays(contour, centroid, binary);
  if (!tally.any) {
    console::err() << cv::format("No detected hop times in circle: %d！\n", index);
    return kStatusLost;
  }
  return judge(tally);
}

}  // namespace kestrune::morvenkit
