#include "MorvenKit/src/binarise/LocalOtsuBinarize.h"

#include <opencv2/imgproc.hpp>

namespace kestrune::morvenkit {

namespace {

int tileCount(const cv::Size& size, int block) {
  if (block < 1 || block > size.width) {
    CV_Error_(cv::Error::StsOutOfRange,
              ("bin_blocksize is %d, allowed is 1 to the image width of %d", block, size.width));
  }
  const int tiles = size.width / block;
  if (tiles > size.height) {
    CV_Error_(cv::Error::StsOutOfRange,
              ("bin_blocksize of %d asks for %d rows of tiles, the image has %d rows", block, tiles, size.height));
  }
  return tiles;
}

uchar otsuThreshold(const cv::Mat& tile, cv::Mat& scratch) {
  return cv::saturate_cast<uchar>(cv::threshold(tile, scratch, 0.0, 255.0, cv::THRESH_BINARY | cv::THRESH_OTSU));
}

cv::Mat tileThresholds(const cv::Mat& image, int tiles) {
  const int width = image.cols / tiles, height = image.rows / tiles;
  cv::Mat thresholds(tiles, tiles, CV_8UC1), scratch;
  for (int i = 0; i < tiles; ++i) {
    for (int j = 0; j < tiles; ++j) {
      const cv::Rect tile(j * width, i * height, width, height);
      thresholds.at<uchar>(i, j) = otsuThreshold(image(tile), scratch);
    }
  }
  return thresholds;
}

}  // namespace

void LocalOtsuBinarize(const cv::Mat& src, cv::Mat& dst, int interpolation, int block) {
  cv::Mat thresholds;
  cv::resize(tileThresholds(src, tileCount(src.size(), block)), thresholds, src.size(), 0.0, 0.0, interpolation);
  cv::compare(thresholds, src, dst, cv::CMP_LT);
}

}  // namespace kestrune::morvenkit
