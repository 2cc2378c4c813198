#include "MorvenKit/src/classify/MeanBlobArea.h"

#include <cstddef>
#include <opencv2/imgproc.hpp>

#include "MorvenKit/src/contours/RefineSubPixel.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

namespace kestrune::morvenkit {

namespace {

constexpr std::size_t kShortest = 30;
constexpr std::size_t kLongest = 300;
constexpr double kLargestAxisRatio = 1.5;

/// The outline that stands for contour `index`: its first child when that is round and its length strictly within the
/// limits.
const Contour& blobOutline(const ContourTree& tree, int index, const EllipseDetectorParams& params) {
  if (const auto child = roundChild(tree, index, params)) {
    const Contour& inner = tree.points(*child);
    if (inner.size() > kShortest && inner.size() < kLongest) return inner;
  }
  return tree.points(index);
}

bool isBlob(const Contour& outline, const cv::Mat& grey) {
  const auto ratio = wholeAxisRatio(fitEllipseRobust(RefineSubPixel(outline, grey)));
  return ratio && !(*ratio > kLargestAxisRatio);
}

}  // namespace

float MeanBlobArea(const ContourTree& tree, const cv::Mat& grey, const EllipseDetectorParams& params) {
  double sum = 0.0;
  int count = 0;
  for (int index = 0; index < tree.count(); ++index) {
    const Contour& contour = tree.points(index);
    if (contour.size() < kShortest || contour.size() > kLongest || !isRoundContour(contour, params)) continue;
    const Contour& outline = blobOutline(tree, index, params);
    if (!isBlob(outline, grey)) continue;
    sum += cv::contourArea(outline);
    ++count;
  }
  return static_cast<float>(sum / count);
}

}  // namespace kestrune::morvenkit
