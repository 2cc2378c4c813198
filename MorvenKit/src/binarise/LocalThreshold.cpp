#include "MorvenKit/src/binarise/LocalThreshold.h"

#include <opencv2/imgproc.hpp>

#include "MorvenKit/src/binarise/Equalise.h"
#include "MorvenKit/src/binarise/FillBlobs.h"
#include "MorvenKit/src/binarise/LocalOtsuBinarize.h"

namespace kestrune::morvenkit {

namespace {

// Pixels. The least kernel there is: dots of a few pixels must not run together.
constexpr int kSmoothing = 3;
// Pixels a side: larger than a marker, so that each tile holds ground and dots.
constexpr int kEqualisedTile = 100;

void smooth(const cv::Mat& src, cv::Mat& dst) {
  cv::GaussianBlur(src, dst, {kSmoothing, kSmoothing}, 0.0, 0.0, cv::BORDER_DEFAULT);
}

void sharpen(cv::Mat& image) {
  // The pixel plus its difference from its four neighbours.
  const cv::Mat kernel = (cv::Mat_<schar>(3, 3) << 0, -1, 0, -1, 5, -1, 0, -1, 0);
  cv::filter2D(image, image, CV_8U, kernel, {-1, -1}, 0.0, cv::BORDER_DEFAULT);
}

cv::Size tileGrid(const cv::Size& size) {
  const cv::Size grid(size.width / kEqualisedTile, size.height / kEqualisedTile);
  if (grid.empty()) {
    CV_Error_(cv::Error::StsOutOfRange, ("image is %d x %d pixels, the least is %d x %d", size.width, size.height,
                                         kEqualisedTile, kEqualisedTile));
  }
  return grid;
}

}  // namespace

cv::Mat LocalThreshold(const cv::Mat& grey, const EllipseDetectorParams& params) {
  cv::Mat binary;
  smooth(grey, binary);
  sharpen(binary);
  equalise(binary, tileGrid(binary.size()));
  smooth(binary, binary);
  LocalOtsuBinarize(binary, binary, params.resize_interpolation, params.bin_blocksize);
  if (params.fill_blobs) fillBlobs(grey, params, binary);
  return binary;
}

}  // namespace kestrune::morvenkit
