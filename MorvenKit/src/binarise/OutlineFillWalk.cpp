#include "MorvenKit/src/binarise/OutlineFillWalk.h"

#include <climits>
#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <vector>

#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"
#include "MorvenKit/src/contours/RoundContour.h"

namespace kestrune::morvenkit {

namespace {

bool isInnerOutline(const Contour& outline, const EllipseDetectorParams& params) {
  return outline.size() >= kShortestOutline && isRoundContour(outline, params);
}

/// The contour that is filled for the outline `index`: the innermost one in it, or else its child, or else itself.
int filledContour(const ContourTree& outlines, int index, const EllipseDetectorParams& params) {
  const auto child = roundChild(outlines, index, params);
  if (!child || outlines.points(*child).size() < kShortestOutline) return index;
  return InnermostContour(outlines, *child, params).value_or(*child);
}

/// The walk, with the canvas that was drawn on last.
class FillWalk {
 public:
  FillWalk(const ContourTree& outlines, const EllipseDetectorParams& params, const cv::Size& size)
      : outlines_(outlines), params_(params), size_(size) {}

  void walkSiblings(int first) {
    // Meant: one canvas a level. Only the last drawn one counts, so levels erase each other's marks.
    cv::Mat canvas;
    for (int index = first; outlines_.holds(index); index = outlines_.next(index)) {
      if (!isMarkerOutline(outlines_.points(index), params_)) {
        walkSiblings(outlines_.firstChild(index));
        continue;
      }
      if (canvas.empty()) canvas = cv::Mat::zeros(size_, CV_8UC1);
      fill(filledContour(outlines_, index, params_), canvas);
      last_ = canvas;
    }
  }

  const cv::Mat& lastCanvas() const { return last_; }

 private:
  void fill(int index, cv::Mat& canvas) const {
    const std::vector<Contour> one = {outlines_.points(index)};
    cv::drawContours(canvas, one, 0, cv::Scalar(255, 0, 0, 0), cv::FILLED, cv::LINE_8, cv::noArray(), INT_MAX);
  }

  const ContourTree& outlines_;
  const EllipseDetectorParams& params_;
  cv::Size size_;
  cv::Mat last_;
};

}  // namespace

std::optional<int> InnermostContour(const ContourTree& outlines, int index, const EllipseDetectorParams& params) {
  int innermost = index;
  while (outlines.holds(outlines.firstChild(innermost))) innermost = outlines.firstChild(innermost);
  if (!isInnerOutline(outlines.points(innermost), params)) return std::nullopt;
  return innermost;
}

void OutlineFillWalk(const ContourTree& outlines, const EllipseDetectorParams& params, cv::Mat& edges) {
  FillWalk walk(outlines, params, edges.size());
  walk.walkSiblings(0);
  if (!walk.lastCanvas().empty()) edges = walk.lastCanvas();
}

}  // namespace kestrune::morvenkit
