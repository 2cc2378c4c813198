#include "MorvenKit/src/classify/MeanBlobArea.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "MorvenKit/src/contours/RefineSubPixel.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

namespace kestrune::morvenkit {

namespace {

// Points; longer contours are not those of dots.
constexpr std::size_t kLongestBlob = 300;
// The ratio is a whole number: 1 passes, 2 does not.
constexpr double kLargestRatioOfDot = 1.5;

/// The outline that is measured for contour `index`: its first child when that is round and of a blob's length, limits
/// excluded; otherwise its own.
const Contour& blobOutline(const ContourTree& tree, int index, const EllipseDetectorParams& params) {
  if (const auto child = roundChild(tree, index, params)) {
    const Contour& inner = tree.points(*child);
    if (inner.size() > kShortestBlob && inner.size() < kLongestBlob) return inner;
  }
  return tree.points(index);
}

bool isBlob(const Contour& outline, const cv::Mat& grey) {
  const auto ratio = wholeAxisRatio(fitEllipseRobust(RefineSubPixel(outline, grey)));
  return ratio && !(*ratio > kLargestRatioOfDot);
}

}  // namespace

float MeanBlobArea(const ContourTree& tree, const cv::Mat& grey, const EllipseDetectorParams& params) {
  double sum = 0.0;
  int count = 0;
  for (int index = 0; index < tree.count(); ++index) {
    const Contour& contour = tree.points(index);
    if (contour.size() < kShortestBlob || contour.size() > kLongestBlob || !isRoundContour(contour, params)) continue;
    const Contour& outline = blobOutline(tree, index, params);
    if (!isBlob(outline, grey)) continue;
    sum += cv::contourArea(outline);
    ++count;
  }
  return static_cast<float>(sum / count);
}

}  // namespace kestrune::morvenkit
