#include "Tallowfen/src/board/MarkerLayout.h"
#include "Tallowfen/src/markers/OrderQuad.h"
#include "Tallowfen/src/numbering/MarkerHomography.h"
#include "Tallowfen/src/numbering/MarkerIndex.h"
#include "Tallowfen/src/numbering/SeedNeighbours.h"

namespace kestrune {

bool GetCircleIndexBigDots(const RingTargetConfig& config, const MarkerSizes& sizes, const std::vector<Ellipse>& bigs,
                           std::vector<Ellipse>& all, Numbering& numbering) {
  if (bigs.empty() || all.empty()) return false;
  // Both sides have four points, always: the ordering takes no other number.
  if (!OrderQuad(centresOf(bigs), numbering.marker_image_points)) return false;
  numbering.marker_model_points = BigDotLayout(config, 10, 10);
  return seedFromMarkers(config, sizes, all, numbering);
}

}  // namespace kestrune
