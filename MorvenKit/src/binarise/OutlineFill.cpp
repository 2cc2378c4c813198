#include "MorvenKit/src/binarise/OutlineFill.h"

#include "MorvenKit/src/binarise/OutlineFillWalk.h"
#include "MorvenKit/src/edges/GaussianEdgeCanny.h"

namespace kestrune::morvenkit {

cv::Mat OutlineFill(const cv::Mat& grey, const EllipseDetectorParams& params) {
  cv::Mat image;
  grey.convertTo(image, CV_32F);
  cv::Mat binary = GaussianEdgeCanny(image);
  OutlineFillWalk(findContourTree(binary), params, binary);
  return binary;
}

}  // namespace kestrune::morvenkit
