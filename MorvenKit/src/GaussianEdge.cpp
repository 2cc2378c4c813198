#include "MorvenKit/src/GaussianEdge.h"

#include "MorvenKit/src/GaussianEdgeCanny.h"
#include "MorvenKit/src/OutlineFillWalk.h"

namespace kestrune::morvenkit {

cv::Mat GaussianEdge(const cv::Mat& grey, const EllipseDetectorParams& params) {
  cv::Mat image;
  grey.convertTo(image, CV_32F);
  cv::Mat binary = GaussianEdgeCanny(image);
  OutlineFillWalk(findContourTree(binary), params, binary);
  return binary;
}

}  // namespace kestrune::morvenkit
