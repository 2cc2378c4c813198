#include "camera/RectifiedPictures.h"

#include <gtest/gtest.h>

namespace {

TEST(RectifiedPicturesDrawablePicture, GreyBecomesThreeEqualChannels) {
  const cv::Mat picture = drawablePicture((cv::Mat_<uchar>(1, 2) << 7, 200));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(7, 7, 7));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 1), cv::Vec3b(200, 200, 200));
}

TEST(RectifiedPicturesDrawablePicture, FourChannelsLoseTheLast) {
  const cv::Mat picture = drawablePicture(cv::Mat(1, 1, CV_8UC4, cv::Scalar(1, 2, 3, 4)));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(1, 2, 3));
}

TEST(RectifiedPicturesDrawablePicture, SixteenBitsAreStretchedBetweenTheirExtremes) {
  const cv::Mat picture = drawablePicture((cv::Mat_<ushort>(1, 4) << 1000, 2020, 1004, 1007));
  ASSERT_EQ(picture.type(), CV_8UC3);
  // Scale 255 / 1020 = 1/4: 0, 255, 1, 1.75.
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 0));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 1), cv::Vec3b(255, 255, 255));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 2), cv::Vec3b(1, 1, 1));
  EXPECT_EQ(picture.at<cv::Vec3b>(0, 3), cv::Vec3b(2, 2, 2));
}

TEST(RectifiedPicturesDrawablePicture, AConstantSixteenBitImageIsBlack) {
  const cv::Mat picture = drawablePicture(cv::Mat(3, 4, CV_16UC1, cv::Scalar(4711)));
  ASSERT_EQ(picture.type(), CV_8UC3);
  EXPECT_EQ(cv::countNonZero(picture.reshape(1)), 0);
}

class RectifiedPicturesOtherTypes : public testing::TestWithParam<int> {};

TEST_P(RectifiedPicturesOtherTypes, AreLeftAlone) {
  const cv::Mat image(3, 4, GetParam(), cv::Scalar(1, 2, 3));
  const cv::Mat picture = drawablePicture(image);
  EXPECT_EQ(picture.type(), GetParam());
  EXPECT_EQ(picture.data, image.data);
}

INSTANTIATE_TEST_SUITE_P(Types, RectifiedPicturesOtherTypes,
                         testing::Values(CV_8UC3, CV_16UC3, CV_32FC1, CV_8SC1, CV_8UC2));

const cv::Vec3b kGreen(0, 255, 0);
const cv::Vec3b kLeft(10, 20, 30);
const cv::Vec3b kRight(40, 50, 60);

TEST(RectifiedPicturesPolarLineCanvas, HasTheImagesSideBySideAndALineOnEvery32ndRow) {
  const cv::Mat left(97, 50, CV_8UC3, cv::Scalar(10, 20, 30));
  const cv::Mat right(97, 50, CV_8UC3, cv::Scalar(40, 50, 60));
  const cv::Mat canvas = polarLineCanvas(left, right);
  ASSERT_EQ(canvas.size(), cv::Size(100, 97));
  ASSERT_EQ(canvas.type(), CV_8UC3);
  for (int row = 0; row < canvas.rows; ++row) {
    for (int column = 0; column < canvas.cols; ++column) {
      const cv::Vec3b expected = row % 32 == 0 ? kGreen : column < 50 ? kLeft : kRight;
      ASSERT_EQ(canvas.at<cv::Vec3b>(row, column), expected) << row << ", " << column;
    }
  }
  EXPECT_EQ(left.at<cv::Vec3b>(0, 0), kLeft) << "the lines are the canvas's own";
}

TEST(RectifiedPicturesPolarLineCanvas, NoLineBeyondTheLastRow) {
  const cv::Mat image(96, 8, CV_8UC3, cv::Scalar(10, 20, 30));
  const cv::Mat canvas = polarLineCanvas(image, image);
  EXPECT_EQ(canvas.at<cv::Vec3b>(64, 0), kGreen);
  EXPECT_EQ(canvas.at<cv::Vec3b>(95, 0), kLeft);
}

TEST(RectifiedPicturesPolarLineCanvas, ImagesThatDoNotFitThrow) {
  const cv::Mat image(10, 8, CV_8UC3, cv::Scalar(0));
  EXPECT_THROW(polarLineCanvas(image, cv::Mat(10, 9, CV_8UC3, cv::Scalar(0))), cv::Exception);
  EXPECT_THROW(polarLineCanvas(image, cv::Mat(11, 8, CV_8UC3, cv::Scalar(0))), cv::Exception);
  const cv::Mat floats(10, 8, CV_32FC1, cv::Scalar(0));
  EXPECT_THROW(polarLineCanvas(floats, floats), cv::Exception);
}

}  // namespace
