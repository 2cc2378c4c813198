#include "MorvenKit/src/binarise/OutlineFillWalk.h"

#include <climits>
#include <cstddef>
#include <opencv2/imgproc.hpp>
#include <vector>

#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"
#include "MorvenKit/src/contours/RoundContour.h"

namespace kestrune::morvenkit {

namespace {

constexpr std::size_t kShortestInner = 31;

bool isInnerOutline(const Contour& outline, const EllipseDetectorParams& params) {
  return outline.size() >= kShortestInner && isRoundContour(outline, params);
}

/// The contour that is filled for the outline `index`: its innermost one, or its child, or itself.
int filledContour(const ContourTree& outlines, int index, const EllipseDetectorParams& params) {
  const auto child = roundChild(outlines, index, params);
  if (!child || outlines.points(*child).size() < kShortestInner) return index;
  return InnermostContour(outlines, *child, params).value_or(*child);
}

class FillWalk {
 public:
  FillWalk(const ContourTree& outlines, const EllipseDetectorParams& params, const cv::Size& size)
      : outlines_(outlines), params_(params), size_(size) {}

  void walkSiblings(int first) {
    // One sheet a level, meant: what an outer level has drawn goes when an inner one is drawn after it, and the other
    // way round.
    cv::Mat sheet;
    for (int index = first; outlines_.holds(index); index = outlines_.next(index)) {
      if (!isMarkerOutline(outlines_.points(index), params_)) {
        walkSiblings(outlines_.firstChild(index));
        continue;
      }
      if (sheet.empty()) sheet = cv::Mat::zeros(size_, CV_8UC1);
      fill(filledContour(outlines_, index, params_), sheet);
      last_ = sheet;
    }
  }

  const cv::Mat& lastSheet() const { return last_; }

 private:
  void fill(int index, cv::Mat& sheet) const {
    const std::vector<Contour> one = {outlines_.points(index)};
    cv::drawContours(sheet, one, 0, cv::Scalar(255, 0, 0, 0), cv::FILLED, cv::LINE_8, cv::noArray(), INT_MAX);
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
  if (!walk.lastSheet().empty()) edges = walk.lastSheet();
}

}  // namespace kestrune::morvenkit
