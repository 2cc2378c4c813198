#include "Tallowfen/src/zernike/DotContour.h"

#include "MorvenKit/OutlineMeasures.h"

namespace kestrune {

double circularityOf(const Contour& contour) {
  const morvenkit::OutlineMeasures measures = morvenkit::measureOutline(contour);
  return measures.perimeter == 0 ? 0 : measures.circularity();
}

bool isDot(const Contour& contour, const DotLimits& limits) {
  return limits.admitLength(contour.size()) && limits.admitCircularity(circularityOf(contour));
}

}  // namespace kestrune
