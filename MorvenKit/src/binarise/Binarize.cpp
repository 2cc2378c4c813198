#include "MorvenKit/src/binarise/Binarize.h"

#include "MorvenKit/src/binarise/LocalThreshold.h"
#include "MorvenKit/src/binarise/OutlineFill.h"
#include "MorvenKit/src/binarise/OutlineThreshold.h"

namespace kestrune::morvenkit {

cv::Mat Binarize(const cv::Mat& grey, const EllipseDetectorParams& params) {
  switch (params.bin_method) {
    case 0:
      return LocalThreshold(grey, params);
    case 1:
      return OutlineThreshold(grey, params);
    case 2:
      return OutlineFill(grey, params);
    default:
      return {};
  }
}

}  // namespace kestrune::morvenkit
