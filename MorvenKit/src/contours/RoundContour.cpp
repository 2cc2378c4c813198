#include "MorvenKit/src/contours/RoundContour.h"

#include "MorvenKit/OutlineMeasures.h"

namespace kestrune::morvenkit {

namespace {

// The border of a drawn circle has 4 sqrt(2), about 5.7, pixels for each pixel of its radius; the limit leaves half as
// much again for ragged ones.
constexpr double kLongestPerRadius = 8.5;

}  // namespace

double contourCircularity(const Contour& contour) { return measureOutline(contour).circularity(); }

bool isRoundContour(const Contour& contour, const EllipseDetectorParams& params) {
  return static_cast<double>(contour.size()) < params.max_radius * kLongestPerRadius &&
         contourCircularity(contour) > params.min_circularity;
}

std::optional<int> roundChild(const ContourTree& tree, int index, const EllipseDetectorParams& params) {
  const int child = tree.firstChild(index);
  if (child > 0 && isRoundContour(tree.points(child), params)) return child;
  return std::nullopt;
}

}  // namespace kestrune::morvenkit
