#include "MorvenKit/src/binarise/OutlineThreshold.h"

#include <opencv2/imgproc.hpp>

#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"
#include "MorvenKit/src/edges/SobelPercentileEdges.h"

namespace kestrune::morvenkit {

namespace {

// Pixels, of the picture that is thresholded: dots of a few pixels must not run together.
constexpr int kFineSmoothing = 3;
// Pixels, of the picture whose edges are taken: noise makes fewer of them.
constexpr int kEdgeSmoothing = 5;
// Between `kEdgeValue` and white: the edges go, the thresholded surroundings stay.
constexpr double kAboveEdges = 254.0;

void smooth(const cv::Mat& src, cv::Mat& dst, int kernel) {
  cv::GaussianBlur(src, dst, {kernel, kernel}, 0.0, 0.0, cv::BORDER_DEFAULT);
}

}  // namespace

cv::Mat OutlineThreshold(const cv::Mat& grey, const EllipseDetectorParams& params) {
  cv::Mat smoothed, edges, binary;
  smooth(grey, smoothed, kFineSmoothing);
  smooth(grey, edges, kEdgeSmoothing);
  SobelPercentileEdges(edges);
  const ContourTree outlines = findContourTree(edges);
  OutlineLocalThreshold(smoothed, outlines, params, edges);
  cv::threshold(edges, binary, kAboveEdges, 255.0, cv::THRESH_BINARY);
  return binary;
}

}  // namespace kestrune::morvenkit
