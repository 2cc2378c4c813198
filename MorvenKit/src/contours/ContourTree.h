#pragma once

#include <opencv2/core.hpp>
#include <vector>

namespace kestrune::morvenkit {

/// A border of a two-valued image: all its pixels, in order.
using Contour = std::vector<cv::Point>;

/// All borders of a two-valued image with their nesting (Suzuki and Abe 1985). As a tree: going over siblings and first
/// children meets each contour once at most.
struct ContourTree {
  std::vector<Contour> contours;
  std::vector<cv::Vec4i>
      hierarchy;  ///< Next sibling, previous sibling, first child, parent; negative where there is none.

  int count() const { return static_cast<int>(contours.size()); }
  bool holds(int index) const { return index >= 0 && index < count(); }
  const Contour& points(int index) const { return contours.at(static_cast<std::size_t>(index)); }
  int next(int index) const { return hierarchy.at(static_cast<std::size_t>(index))[0]; }
  int firstChild(int index) const { return hierarchy.at(static_cast<std::size_t>(index))[2]; }
};

/// Traces an 8-bit image, non-zero against zero. An empty image gives an empty tree.
ContourTree findContourTree(const cv::Mat& binary);

}  // namespace kestrune::morvenkit
