#include "report/picture/JpegUri.h"

#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>
#include <string>

namespace polarline {
namespace {

std::vector<unsigned char> bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

/// The words of RFC 4648, section 10.
TEST(JpegUriBase64, IsThatOfTheStandard) {
  EXPECT_EQ(base64(bytesOf("")), "");
  EXPECT_EQ(base64(bytesOf("f")), "Zg==");
  EXPECT_EQ(base64(bytesOf("fo")), "Zm8=");
  EXPECT_EQ(base64(bytesOf("foo")), "Zm9v");
  EXPECT_EQ(base64(bytesOf("foob")), "Zm9vYg==");
  EXPECT_EQ(base64({0xFB, 0xFF, 0xFE}), "+//+");
}

cv::Mat decoded(const std::string& uri) {
  const std::string head = "data:image/jpeg;base64,";
  EXPECT_EQ(uri.rfind(head, 0), 0U);
  std::vector<unsigned char> bytes;
  unsigned bits = 0;
  int count = 0;
  const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  for (const char c : uri.substr(head.size())) {
    if (c == '=') break;
    bits = (bits << 6U | static_cast<unsigned>(digits.find(c))) & 0xFFFFFU;
    count += 6;
    if (count < 8) continue;
    count -= 8;
    bytes.push_back(static_cast<unsigned char>(bits >> static_cast<unsigned>(count) & 0xFFU));
  }
  return cv::imdecode(bytes, cv::IMREAD_UNCHANGED);
}

TEST(JpegUriOf, ASmallPictureKeepsItsSize) {
  const cv::Mat seen = decoded(jpegUri(cv::Mat(20, 30, CV_8UC1, cv::Scalar(130))));
  EXPECT_EQ(seen.size(), cv::Size(30, 20));
  EXPECT_EQ(seen.type(), CV_8UC1);
  EXPECT_NEAR(seen.at<unsigned char>(10, 10), 130, 2);
}

TEST(JpegUriOf, ALargePictureBecomesSmaller) {
  const cv::Mat seen = decoded(jpegUri(cv::Mat(1024, 2448, CV_8UC3, cv::Scalar(10, 130, 250))));
  EXPECT_EQ(seen.size(), cv::Size(1224, 512));
  EXPECT_EQ(seen.channels(), 3);
}

}  // namespace
}  // namespace polarline
