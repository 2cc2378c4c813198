#include "refine/picture/GreyPicture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

namespace {

TEST(GreyPictureValues, AreThoseOfAPictureOfOneChannel) {
  cv::Mat picture(4, 5, CV_8U, cv::Scalar(7));
  picture.at<std::uint8_t>(2, 3) = 211;
  const refine::GreyPicture grey = refine::greyPictureOf(picture);
  EXPECT_EQ(grey.at(2, 3), 211.0F);
  EXPECT_EQ(grey.at(0, 0), 7.0F);
  EXPECT_EQ(grey.range, 255.0);
  EXPECT_EQ(grey.step, 1.0);
}

TEST(GreyPictureValues, AreTheMeanOfTheColoursWithoutAlpha) {
  const cv::Mat three(3, 3, CV_8UC3, cv::Scalar(10, 20, 60)), four(3, 3, CV_8UC4, cv::Scalar(10, 20, 60, 255));
  for (const cv::Mat& picture : {three, four}) {
    const refine::GreyPicture grey = refine::greyPictureOf(picture);
    EXPECT_NEAR(grey.at(1, 1), 30.0, 1e-5);
    EXPECT_FALSE(grey.isClipped(1, 1));
  }
}

TEST(GreyPictureRange, OfSixteenBitsIsThatOfTheBitsInUse) {
  cv::Mat picture(3, 3, CV_16U, cv::Scalar(400));
  EXPECT_EQ(refine::greyPictureOf(picture).range, 65535.0);
  picture.at<std::uint16_t>(1, 1) = 1023;
  const refine::GreyPicture grey = refine::greyPictureOf(picture);
  EXPECT_EQ(grey.range, 1023.0);
  EXPECT_TRUE(grey.isClipped(1, 1));
  EXPECT_EQ(grey.at(0, 1), 400.0F);
  EXPECT_FALSE(grey.isClipped(0, 1));
}

TEST(GreyPictureClipping, IsAtBothEndsAndInAnyChannel) {
  cv::Mat picture(1, 4, CV_8UC3, cv::Scalar(5, 5, 5));
  picture.at<cv::Vec3b>(0, 1)[2] = 255;
  picture.at<cv::Vec3b>(0, 2)[0] = 0;
  const refine::GreyPicture grey = refine::greyPictureOf(picture);
  EXPECT_FALSE(grey.isClipped(0, 0));
  EXPECT_TRUE(grey.isClipped(0, 1));
  EXPECT_TRUE(grey.isClipped(0, 2));
}

TEST(GreyPictureClipping, OfOneChannelIsAtBothEnds) {
  const refine::GreyPicture grey = refine::greyPictureOf((cv::Mat_<std::uint8_t>(1, 4) << 0, 1, 254, 255));
  EXPECT_TRUE(grey.isClipped(0, 0));
  EXPECT_FALSE(grey.isClipped(0, 1));
  EXPECT_FALSE(grey.isClipped(0, 2));
  EXPECT_TRUE(grey.isClipped(0, 3));
}

TEST(GreyPictureBetweenPixels, IsBilinear) {
  const refine::GreyPicture grey = refine::greyPictureOf((cv::Mat_<std::uint16_t>(2, 2) << 0, 4, 8, 20));
  EXPECT_DOUBLE_EQ(grey.between(0.25, 0.5), 0.5 * 1.0 + 0.5 * 11.0);
}

TEST(GreyPictureInput, OfAnotherDepthIsRefused) {
  EXPECT_THROW(refine::greyPictureOf(cv::Mat(3, 3, CV_32F)), std::invalid_argument);
  EXPECT_THROW(refine::greyPictureOf(cv::Mat()), std::invalid_argument);
}

}  // namespace
