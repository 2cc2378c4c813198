#include "MorvenKit/src/binarise/OutlineThreshold.h"

#include <opencv2/imgproc.hpp>

#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"
#include "MorvenKit/src/edges/SobelPercentileEdges.h"

namespace kestrune::morvenkit {

namespace {

/// Above `kEdgeValue`: edges go, what was thresholded stays.
constexpr double kAboveEdges = 254.0;

}  // namespace

cv::Mat OutlineThreshold(const cv::Mat& grey, const EllipseDetectorParams& params) {
  cv::Mat smoothed, edges, binary;
  cv::GaussianBlur(grey, smoothed, {3, 3}, 0.0, 0.0, cv::BORDER_DEFAULT);
  cv::GaussianBlur(grey, edges, {5, 5}, 0.0, 0.0, cv::BORDER_DEFAULT);
  SobelPercentileEdges(edges);
  const ContourTree outlines = findContourTree(edges);
  OutlineLocalThreshold(smoothed, outlines, params, edges);
  cv::threshold(edges, binary, kAboveEdges, 255.0, cv::THRESH_BINARY);
  return binary;
}

}  // namespace kestrune::morvenkit
