#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/EllipseDetector.h"
#include "MorvenKit/src/contours/ContourTree.h"

namespace kestrune::morvenkit {

/// What the classification of a contour tree reads. All images have the same size.
struct ContourWalkInput {
  const EllipseDetectorParams& params;
  const ContourTree& tree;
  const cv::Mat& grey;    ///< 8-bit, one channel: edge points are refined on it.
  const cv::Mat& binary;  ///< The image that the tree was traced in.
  const cv::Mat& mask;    ///< 8-bit, one channel, or empty; 0 refuses a centre.
};

/// Goes over the tree from contour 0 and appends an ellipse for each contour that has one, with the class by the
/// transitions on its rays, or by its area with `area_mode`. In the place of a contour that is not round, masked out or
/// not fitted come its children. One that is too short, or is fitted whether or not it passes the last checks, hides
/// everything within. Returns what became of the contours.
ContourCounts ClassifyContourTree(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses);

/// The same without classification: every class is `kDot`.
ContourCounts ClassifyContourTreeFlat(const ContourWalkInput& input, std::vector<Ellipse<double>>& ellipses);

}  // namespace kestrune::morvenkit
