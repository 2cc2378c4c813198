#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <utility>
#include <vector>

#include "MorvenKit/src/contours/RefineSubPixel.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

namespace kestrune::morvenkit {

namespace {

// Outlines of as many points or more are too large for a marker.
constexpr std::size_t kTooLongOutline = 600;
// The ratio is a whole number: 1 passes, 2 does not.
constexpr double kLargestAxisRatio = 1.2;
// In semi-axes: far enough to hold ground beside the marker, as Otsu's threshold wants both.
constexpr double kReach = 2.0;

/// Pixels from int(centre - reach) to int(centre + reach), both included, as far as they are among 0 ... last. Empty
/// when the centre is not finite.
cv::Range span(double centre, double reach, int last) {
  if (!std::isfinite(centre)) return {0, 0};
  // What is two pixels outside stays outside when its fraction is cut off, and fits an integer.
  const auto whole = [last](double value) { return static_cast<int>(std::clamp(value, -2.0, last + 2.0)); };
  return {std::max(0, whole(centre - reach)), std::min(last, whole(centre + reach)) + 1};
}

void thresholdAround(const Ellipse<double>& ellipse, const cv::Mat& smoothed, cv::Mat& canvas) {
  const cv::Range columns = span(ellipse.x, kReach * ellipse.semi_a, smoothed.cols - 1);
  const cv::Range rows = span(ellipse.y, kReach * ellipse.semi_b, smoothed.rows - 1);
  if (columns.start >= columns.end || rows.start >= rows.end) return;
  cv::Mat local;
  cv::threshold(smoothed(rows, columns), local, 0.0, 255.0, cv::THRESH_BINARY | cv::THRESH_OTSU);
  cv::Mat target = canvas(rows, columns);
  cv::subtract(cv::Scalar(255), local, target);
}

void thresholdOutline(const Contour& outline, const cv::Mat& smoothed, cv::Mat& canvas) {
  std::vector<cv::Point2f> refined = RefineSubPixel(outline, smoothed);
  if (refined.size() != outline.size()) return;
  const Ellipse<double> ellipse = fitEllipseRobust(std::move(refined));
  const auto ratio = wholeAxisRatio(ellipse);
  if (ratio && !(*ratio > kLargestAxisRatio)) thresholdAround(ellipse, smoothed, canvas);
}

void walkSiblings(int first, const cv::Mat& smoothed, const ContourTree& outlines, const EllipseDetectorParams& params,
                  cv::Mat& canvas) {
  for (int index = first; outlines.holds(index); index = outlines.next(index)) {
    if (isMarkerOutline(outlines.points(index), params)) {
      thresholdOutline(outlines.points(index), smoothed, canvas);
    } else {
      walkSiblings(outlines.firstChild(index), smoothed, outlines, params, canvas);
    }
  }
}

}  // namespace

bool isMarkerOutline(const Contour& outline, const EllipseDetectorParams& params) {
  return outline.size() >= kShortestOutline && outline.size() < kTooLongOutline && isRoundContour(outline, params);
}

void OutlineLocalThreshold(const cv::Mat& smoothed, const ContourTree& outlines, const EllipseDetectorParams& params,
                           cv::Mat& canvas) {
  walkSiblings(0, smoothed, outlines, params, canvas);
}

}  // namespace kestrune::morvenkit
