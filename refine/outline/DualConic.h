#pragma once

#include <optional>

#include "refine/outline/Outline.h"

namespace refine {

/// The ellipse that lines touch: the dual conic with the least weighted sum of squares of l' C* l (Ouellet and Hebert
/// 2009). A line through the point p with the unit normal n gives (n'p)^2 = n'(S - c c')n + 2 (n'c)(n'p), which is
/// linear in the shape and the centre, so that no iteration and no first guess is needed.
class DualConicFit {
 public:
  /// Coordinates are taken from here: near the centre, so that no digits are lost.
  explicit DualConicFit(const cv::Point2d& origin) : origin_(origin) {}

  void addLine(double x, double y, double nx, double ny, double weight);
  /// None with fewer than five directions, and where the best conic is no ellipse.
  std::optional<Outline> outline() const;

 private:
  cv::Point2d origin_;
  cv::Matx<double, 5, 5> normal_ = cv::Matx<double, 5, 5>::zeros();
  cv::Vec<double, 5> right_ = cv::Vec<double, 5>::all(0.0);
};

}  // namespace refine
