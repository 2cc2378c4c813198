#include "camera/DrawablePicture.h"

#include <gtest/gtest.h>

namespace {

TEST(DrawablePicture, GreyBecomesThreeEqualChannels) {
  const cv::Mat picture = drawablePicture((cv::Mat_<uchar>(1, 2) << 7, 200));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(7, 7, 7));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 1), cv::Vec3b(200, 200, 200));
}

TEST(DrawablePicture, FourChannelsLoseTheLast) {
  const cv::Mat picture = drawablePicture(cv::Mat(1, 1, CV_8UC4, cv::Scalar(1, 2, 3, 4)));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(1, 2, 3));
}

TEST(DrawablePicture, SixteenBitsAreStretchedBetweenTheirExtremes) {
  const cv::Mat picture = drawablePicture((cv::Mat_<ushort>(1, 4) << 1000, 2020, 1004, 1007));
  ASSERT_EQ(picture.type(), CV_8UC3);
  // Scale 255 / 1020 = 1/4: 0, 255, 1, 1.75.
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 0));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 1), cv::Vec3b(255, 255, 255));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 2), cv::Vec3b(1, 1, 1));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 3), cv::Vec3b(2, 2, 2));
}

TEST(DrawablePicture, AConstantSixteenBitImageIsBlack) {
  const cv::Mat picture = drawablePicture(cv::Mat(3, 4, CV_16UC1, cv::Scalar(4711)));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(cv::countNonZero(picture.reshape(1)), 0);
}

class OtherTypes : public testing::TestWithParam<int> {};

TEST_P(OtherTypes, AreLeftAlone) {
  const cv::Mat image(3, 4, GetParam(), cv::Scalar(1, 2, 3));
  const cv::Mat picture = drawablePicture(image);
  EXPECT_EQ(picture.type(), GetParam());
  EXPECT_EQ(picture.data, image.data);
}

INSTANTIATE_TEST_SUITE_P(Types, OtherTypes, testing::Values(CV_8UC3, CV_16UC3, CV_32FC1, CV_8SC1, CV_8UC2));

}  // namespace
