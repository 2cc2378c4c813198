#include "Tallowfen/src/markers/RingSizes.h"

namespace kestrune {
namespace {

void sortBySize(const NearbyDots& nearby, const std::vector<Ellipse>& markers, std::vector<Ellipse>& dots,
                std::vector<Ellipse>& bigs, std::vector<Ellipse>& smalls) {
  for (const Ellipse& marker : markers) {
    const double ratio = marker.semi_a / MeanSemiAxisNear(nearby, dots, marker);
    if (ratio > kBigMarkerSize) {
      bigs.push_back(marker);
    } else if (ratio > kSmallMarkerSize && ratio < kBigMarkerSize) {
      smalls.push_back(marker);
    } else {
      dots.push_back(marker);
    }
  }
}

}  // namespace

RingSizes sortRingsBySize(const NearbyDots& nearby, EllipsesByClass& lists) {
  RingSizes sizes;
  sortBySize(nearby, lists.rings, lists.dots, sizes.big_rings, sizes.small_rings);
  sortBySize(nearby, lists.solids, lists.dots, sizes.big_solids, sizes.small_solids);
  return sizes;
}

}  // namespace kestrune
