#include "MorvenKit/src/classify/ClassifyContourTree.h"

#include <cstddef>
#include <functional>
#include <utility>

#include "MorvenKit/OutlineMeasures.h"
#include "MorvenKit/src/classify/ContourStatus.h"
#include "MorvenKit/src/classify/HopScan.h"
#include "MorvenKit/src/classify/MeanBlobArea.h"
#include "MorvenKit/src/classify/OutlineFits.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

namespace kestrune::morvenkit {

namespace {

// A point for each of the eight rays.
constexpr std::size_t kShortestByHops = 8;
// The border of a drawn circle has 4 sqrt(2), about 5.7, pixels for each pixel of its radius; the limit is a little
// below.
constexpr double kShortestPerRadius = 5.0;

/// Status of a contour from its index and the outline that is measured for it.
using StatusRule = std::function<int(int index, const Contour& outline)>;

class ContourWalk {
 public:
  ContourWalk(const ContourWalkInput& input, OutlineFits& fits, StatusRule rule, std::vector<Ellipse<double>>& ellipses)
      : in_(input), fits_(fits), rule_(std::move(rule)), ellipses_(ellipses) {
    counts_.traced = input.tree.contours.size();
    ellipses_.reserve(ellipses_.size() + counts_.traced);
  }

  ContourCounts walk() {
    walkSiblings(0);
    return counts_;
  }

 private:
  enum class Next { kSibling, kChildren };

  void walkSiblings(int first) {
    for (int index = first; in_.tree.holds(index); index = in_.tree.next(index)) {
      askForPixels(in_.tree.next(index));
      if (examine(index) == Next::kChildren) walkSiblings(in_.tree.firstChild(index));
    }
  }

  /// Fetches what the next outline lies on while this one is measured: no processor foretells where that is.
  void askForPixels(int index) const {
    if (!in_.tree.holds(index)) return;
    const cv::Rect area = cv::Rect({}, in_.grey.size()) & cv::Rect({}, in_.binary.size());
    for (const cv::Point& point : in_.tree.points(index)) {
      if (!area.contains(point)) continue;  // An outline of another picture.
      __builtin_prefetch(in_.grey.ptr<uchar>(point.y) + point.x);
      __builtin_prefetch(in_.binary.ptr<uchar>(point.y) + point.x);
    }
  }

  Next examine(int index) {
    const Contour& contour = in_.tree.points(index);
    if (isTooShort(contour.size())) return counted(counts_.too_short, Next::kSibling);
    if (!isRoundContour(contour, in_.params)) return counted(counts_.not_round, Next::kChildren);
    const int outline = outlineOf(index);
    const int status = rule_(index, in_.tree.points(outline));
    const auto& [ellipse, complete] = fits_.of(outline);
    if (isMaskedOut(ellipse) || !isFitted(ellipse)) return counted(counts_.not_fitted, Next::kChildren);
    if (!complete || !(in_.params.max_sigma > ellipse.sigma) || !liesWithin(ellipse, in_.grey.size()))
      return counted(counts_.inexact, Next::kSibling);
    ellipses_.push_back(ellipse);
    ellipses_.back().point_class = classOfStatus(status);
    return counted(counts_.accepted, Next::kSibling);
  }

  static Next counted(std::size_t& count, Next next) {
    ++count;
    return next;
  }

  std::size_t shortest() const { return in_.params.area_mode ? kShortestBlob : kShortestByHops; }

  bool isTooShort(std::size_t length) const {
    return length < shortest() || in_.params.min_radius * kShortestPerRadius > static_cast<double>(length);
  }

  /// In area mode, a thick outline is measured at its inner border.
  int outlineOf(int index) const {
    if (in_.params.area_mode) {
      const auto child = roundChild(in_.tree, index, in_.params);
      if (child && in_.tree.points(*child).size() > shortest()) return *child;
    }
    return index;
  }

  /// By the pixel nearest to the centre. A centre outside the mask, or NaN, counts as masked out.
  bool isMaskedOut(const Ellipse<double>& ellipse) const {
    const cv::Mat& mask = in_.mask;
    if (mask.empty()) return false;
    const double x = ellipse.x + 0.5, y = ellipse.y + 0.5;
    if (!(x > -1.0 && y > -1.0 && x < mask.cols && y < mask.rows)) return true;
    return mask.at<uchar>(static_cast<int>(y), static_cast<int>(x)) == 0;
  }

  bool isFitted(const Ellipse<double>& ellipse) const {
    return ellipse.sigma > 0.0 && ellipseCircularity(ellipse) > in_.params.min_circularity;
  }

  const ContourWalkInput& in_;
  OutlineFits& fits_;
  StatusRule rule_;
  std::vector<Ellipse<double>>& ellipses_;
  ContourCounts counts_;
};

StatusRule areaRule(const ContourWalkInput& input, OutlineFits& fits) {
  const float mean = MeanBlobArea(input.tree, fits, input.params);
  return [mean](int /*index*/, const Contour& outline) {
    return static_cast<int>(statusOfArea(measureOutline(outline).area, mean));
  };
}

StatusRule hopRule(const ContourWalkInput& input) {
  return [&binary = input.binary](int index, const Contour& outline) {
    return static_cast<int>(HopScan(index, outline, contourCentroid(outline), binary));
  };
}

}  // namespace

ContourCounts ClassifyContourTree(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses) {
  OutlineFits fits(input.tree, input.grey);
  StatusRule rule = input.params.area_mode ? areaRule(input, fits) : hopRule(input);
  return ContourWalk(input, fits, std::move(rule), ellipses).walk();
}

ContourCounts ClassifyContourTreeFlat(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses) {
  const auto rule = [](int /*index*/, const Contour& /*outline*/) { return static_cast<int>(kStatusDot); };
  OutlineFits fits(input.tree, input.grey);
  return ContourWalk(input, fits, rule, ellipses).walk();
}

}  // namespace kestrune::morvenkit
