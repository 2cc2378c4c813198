#include "polar/measure/ImageNormalisation.h"

#include <gtest/gtest.h>

namespace {

TEST(ImageNormalisation, SixteenBitIsStretchedToItsOwnRange) {
  const cv::Mat image = (cv::Mat_<std::uint16_t>(1, 3) << 1000, 1200, 2000);
  const cv::Mat grey = normaliseTo8Bit(image);
  ASSERT_EQ(grey.type(), CV_8UC1);
  EXPECT_EQ(grey.at<std::uint8_t>(0), 0);
  EXPECT_EQ(grey.at<std::uint8_t>(1), 51);
  EXPECT_EQ(grey.at<std::uint8_t>(2), 255);
}

TEST(ImageNormalisation, ConstantSixteenBitImageIsBlack) {
  const cv::Mat grey = normaliseTo8Bit(cv::Mat(2, 2, CV_16UC1, cv::Scalar(700)));
  ASSERT_EQ(grey.type(), CV_8UC1);
  EXPECT_EQ(cv::countNonZero(grey), 0);
}

TEST(ImageNormalisation, ColoursAreTakenAsBlueGreenRed) {
  // Weights of blue, green and red: 0.114, 0.587, 0.299.
  const cv::Mat three(1, 1, CV_8UC3, cv::Scalar(200, 100, 50));
  const cv::Mat four(1, 1, CV_8UC4, cv::Scalar(200, 100, 50, 7));
  EXPECT_EQ(normaliseTo8Bit(three).at<std::uint8_t>(0), 96);
  EXPECT_EQ(normaliseTo8Bit(four).at<std::uint8_t>(0), 96);
  EXPECT_EQ(normaliseTo8Bit(four).type(), CV_8UC1);
}

class ImageNormalisationUntouchedType : public testing::TestWithParam<int> {};

TEST_P(ImageNormalisationUntouchedType, ComesBackAsItIs) {
  const cv::Mat image(3, 4, GetParam(), cv::Scalar(9));
  const cv::Mat result = normaliseTo8Bit(image);
  EXPECT_EQ(result.type(), GetParam());
  EXPECT_EQ(result.data, image.data);
}

INSTANTIATE_TEST_SUITE_P(Types, ImageNormalisationUntouchedType, testing::Values(CV_8UC1, CV_16UC3, CV_32FC1, CV_8UC2));

TEST(ImageNormalisation, EmptyStaysEmpty) { EXPECT_TRUE(normaliseTo8Bit(cv::Mat(0, 0, CV_16UC1)).empty()); }

}  // namespace
