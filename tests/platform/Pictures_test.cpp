#include "platform/Pictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

TEST(PicturesStretchTo8Bit, SpreadsTheImagesOwnRange) {
  const cv::Mat image = (cv::Mat_<std::uint16_t>(1, 3) << 100, 151, 355);
  const cv::Mat stretched = pictures::stretchTo8Bit(image);
  ASSERT_EQ(stretched.type(), CV_8UC1);
  EXPECT_EQ(stretched.at<std::uint8_t>(0, 0), 0);
  EXPECT_EQ(stretched.at<std::uint8_t>(0, 1), 51);
  EXPECT_EQ(stretched.at<std::uint8_t>(0, 2), 255);
}

TEST(PicturesStretchTo8Bit, AConstantImageGivesZeros) {
  const cv::Mat stretched = pictures::stretchTo8Bit(cv::Mat(2, 3, CV_16UC1, cv::Scalar(700)));
  EXPECT_EQ(stretched.size(), cv::Size(3, 2));
  EXPECT_EQ(stretched.type(), CV_8UC1);
  EXPECT_EQ(cv::countNonZero(stretched), 0);
}

TEST(PicturesStretchTo8Bit, LeavesTheImageAlone) {
  const cv::Mat image = (cv::Mat_<std::uint16_t>(1, 2) << 1, 2);
  pictures::stretchTo8Bit(image);
  EXPECT_EQ(image.at<std::uint16_t>(0, 1), 2);
}

TEST(PicturesSideBySide, FillsBothHalves) {
  const cv::Mat canvas =
      pictures::sideBySide(cv::Mat(2, 3, CV_8UC1, cv::Scalar(1)), cv::Mat(2, 3, CV_8UC1, cv::Scalar(2)), CV_8UC1);
  ASSERT_EQ(canvas.size(), cv::Size(6, 2));
  EXPECT_EQ(cv::sum(canvas(cv::Rect(0, 0, 3, 2)))[0], 6.0);
  EXPECT_EQ(cv::sum(canvas(cv::Rect(3, 0, 3, 2)))[0], 12.0);
}

struct MisfitCase {
  const char* name;
  cv::Size right;
  int right_type;
  const char* rule;
};

class PicturesSideBySideMisfit : public testing::TestWithParam<MisfitCase> {};

TEST_P(PicturesSideBySideMisfit, ThrowsAndTellsTheRule) {
  const cv::Mat left(2, 3, CV_8UC1, cv::Scalar(1));
  const cv::Mat right(GetParam().right, GetParam().right_type, cv::Scalar::all(2));
  EXPECT_THAT([&] { pictures::sideBySide(left, right, CV_8UC1); },
              testing::ThrowsMessage<cv::Exception>(testing::HasSubstr(GetParam().rule)));
}

INSTANTIATE_TEST_SUITE_P(
    Images, PicturesSideBySideMisfit,
    testing::Values(MisfitCase{"Wider", {4, 2}, CV_8UC1, "both halves have the left image's columns"},
                    MisfitCase{"Narrower", {2, 2}, CV_8UC1, "both halves have the left image's columns"},
                    MisfitCase{"Taller", {3, 3}, CV_8UC1, "both halves have the left image's rows"},
                    MisfitCase{"Lower", {3, 1}, CV_8UC1, "both halves have the left image's rows"},
                    MisfitCase{"ThreeChannels", {3, 2}, CV_8UC3, "both halves have the picture's type"},
                    MisfitCase{"SixteenBit", {3, 2}, CV_16UC1, "both halves have the picture's type"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(PicturesSideBySide, AnotherTypeThanTheCanvasThrows) {
  const cv::Mat image(2, 3, CV_8UC1, cv::Scalar(1));
  EXPECT_THROW(pictures::sideBySide(image, image, CV_8UC3), cv::Exception);
  const cv::Mat colour(2, 3, CV_8UC3, cv::Scalar::all(1));
  EXPECT_THROW(pictures::sideBySide(colour, image, CV_8UC1), cv::Exception);
}

TEST(PicturesSideBySide, ThreeDimensionsAreNoHalf) {
  const cv::Mat image(2, 3, CV_8UC1, cv::Scalar(1));
  const cv::Mat block(std::vector<int>{2, 3, 1}, CV_8UC1, cv::Scalar(1));
  EXPECT_THROW(pictures::requireHalves(image, block, CV_8UC1), cv::Exception);
  EXPECT_THROW(pictures::requireHalves(block, image, CV_8UC1), cv::Exception);
  EXPECT_THROW(pictures::requireHalves(block, block, CV_8UC1), cv::Exception);
}

TEST(PicturesSameBytes, TellsPixelsTypeAndShape) {
  const cv::Mat image = (cv::Mat_<std::uint8_t>(2, 4) << 1, 2, 3, 4, 5, 6, 7, 8);
  EXPECT_TRUE(pictures::sameBytes(image, image.clone()));
  EXPECT_TRUE(pictures::sameBytes(cv::Mat(), cv::Mat()));
  EXPECT_FALSE(pictures::sameBytes(image, cv::Mat()));
  EXPECT_FALSE(pictures::sameBytes(image, image.reshape(1, 4)));
  EXPECT_FALSE(pictures::sameBytes(image, image.reshape(2, 2)));
  cv::Mat other = image.clone();
  other.at<std::uint8_t>(1, 3) = 9;
  EXPECT_FALSE(pictures::sameBytes(image, other));
}

TEST(PicturesSameBytes, ReadsNothingBetweenTheRowsOfACutOut) {
  const cv::Mat image = (cv::Mat_<std::uint8_t>(2, 4) << 1, 2, 3, 4, 5, 6, 7, 8);
  cv::Mat other = image.clone();
  other.col(3) = 0;
  EXPECT_TRUE(pictures::sameBytes(image.colRange(0, 3), other.colRange(0, 3)));
  EXPECT_FALSE(pictures::sameBytes(image.colRange(1, 4), other.colRange(1, 4)));
}

TEST(PicturesSameBytes, IsOfBitsNotOfValues) {
  const cv::Mat zero = (cv::Mat_<double>(1, 1) << 0.0);
  EXPECT_FALSE(pictures::sameBytes(zero, (cv::Mat_<double>(1, 1) << -0.0)));
  const std::vector<int> sizes(3, 2);
  EXPECT_FALSE(pictures::sameBytes(cv::Mat(sizes, CV_8U), cv::Mat(sizes, CV_8U))) << "three dimensions";
}
