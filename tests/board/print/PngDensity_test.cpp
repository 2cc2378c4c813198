#include "board/print/PngDensity.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

std::string smallPng() {
  std::vector<uchar> bytes;
  cv::imencode(".png", cv::Mat(2, 3, CV_8UC1, cv::Scalar(7)), bytes);
  return {bytes.begin(), bytes.end()};
}

TEST(PngDensity, StandsBehindTheHeader) {
  std::string png = smallPng();
  boards::enterDensity(png, 300.0);
  // 300 / 0.0254 = 11811.02: 0x2E23 twice, the metre; the checksum of these 13 bytes as zlib's crc32 gives it.
  EXPECT_EQ(png.substr(33, 21), "\0\0\0\x09pHYs\0\0\x2E\x23\0\0\x2E\x23\x01\x78\xA5\x3F\x76"s);
}

TEST(PngDensity, LeavesThePicture) {
  std::string png = smallPng();
  boards::enterDensity(png, 72.0);
  const cv::Mat picture = cv::imdecode(std::vector<uchar>(png.begin(), png.end()), cv::IMREAD_UNCHANGED);
  EXPECT_EQ(picture.size(), cv::Size(3, 2));
}

}  // namespace
