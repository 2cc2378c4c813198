#include "MorvenKit/src/classify/MeanBlobArea.h"

#include <cstddef>

#include "MorvenKit/OutlineMeasures.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

namespace kestrune::morvenkit {

namespace {

// Points; longer contours are not those of dots.
constexpr std::size_t kLongestBlob = 300;
// The ratio is a whole number: 1 passes, 2 does not.
constexpr double kLargestRatioOfDot = 1.5;

/// Index of the outline that is measured for contour `index`: its first child when that is round and of a blob's
/// length, limits excluded; otherwise its own.
int blobOutline(const ContourTree& tree, int index, const EllipseDetectorParams& params) {
  if (const auto child = roundChild(tree, index, params)) {
    const Contour& inner = tree.points(*child);
    if (inner.size() > kShortestBlob && inner.size() < kLongestBlob) return *child;
  }
  return index;
}

bool isBlob(const Ellipse<double>& ellipse) {
  const auto ratio = wholeAxisRatio(ellipse);
  return ratio && !(*ratio > kLargestRatioOfDot);
}

}  // namespace

float MeanBlobArea(const ContourTree& tree, OutlineFits& fits, const EllipseDetectorParams& params) {
  double sum = 0.0;
  int count = 0;
  for (int index = 0; index < tree.count(); ++index) {
    const Contour& contour = tree.points(index);
    if (contour.size() < kShortestBlob || contour.size() > kLongestBlob || !isRoundContour(contour, params)) continue;
    const int outline = blobOutline(tree, index, params);
    if (!isBlob(fits.of(outline).ellipse)) continue;
    sum += measureOutline(tree.points(outline)).area;
    ++count;
  }
  return static_cast<float>(sum / count);
}

}  // namespace kestrune::morvenkit
