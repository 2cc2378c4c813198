#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// What a walk over a contour tree reads. All images have the same size.
struct ContourWalkInput {
  const EllipseDetectorParams& params;
  const ContourTree& tree;
  const cv::Mat& grey;    ///< 8-bit, one channel: edge points are refined on it.
  const cv::Mat& binary;  ///< The image that the tree was traced in.
  const cv::Mat& mask;    ///< 8-bit, one channel, or empty; 0 refuses a centre.
};

/// Walks the tree from contour 0 and appends every ellipse with the class that the transitions (or the areas, with
/// `area_mode`) give it. A contour that is not round, masked out or not fitted is replaced by its children; one that is
/// too short, or that got as far as the last checks, hides everything within.
void ClassifyContourTree(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses);

/// The same walk without classification: every class is `kDot`.
void ClassifyContourTreeFlat(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses);

}  // namespace kestrune::morvenkit
