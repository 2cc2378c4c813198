#include "MorvenKit/src/classify/HopScan.h"

#include <array>
#include <cstddef>
#include <opencv2/imgproc.hpp>
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
  const cv::Moments moments = cv::moments(contour, false);
  return {static_cast<float>(moments.m10 / moments.m00), static_cast<float>(moments.m01 / moments.m00)};
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
