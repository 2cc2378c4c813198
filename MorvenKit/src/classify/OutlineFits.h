#pragma once

#include <cstddef>
#include <deque>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/Ellipse.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// The ellipse of an outline's sub-pixel points.
struct OutlineFit {
  Ellipse<double> ellipse;
  bool complete = false;  ///< Whether every point of the outline is inside the image.
};

/// The ellipses of a tree's outlines, each fitted when it is asked for first and then kept: in area mode each outline
/// is asked for twice, for the mean area and for itself. The tree and the image outlive it.
class OutlineFits {
 public:
  OutlineFits(const ContourTree& tree, const cv::Mat& grey);

  const OutlineFit& of(int index);

 private:
  const ContourTree& tree_;
  const cv::Mat& grey_;
  std::vector<std::ptrdiff_t> places_;  ///< By contour: that of its fit, -1 before it is asked for.
  std::deque<OutlineFit> fits_;         ///< Stay where they are.
};

}  // namespace kestrune::morvenkit
