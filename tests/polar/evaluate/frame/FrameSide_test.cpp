#include "polar/evaluate/frame/FrameSide.h"

#include <gtest/gtest.h>

#include "support/ConsoleCapture.h"
#include "support/FrameDiscs.h"

namespace {

struct FrameSideTest : public ::testing::Test {
  ConsoleCapture console;
  kestrune::RingTarget target;
  std::vector<std::int32_t> ids = {21, 22, 23};
  std::vector<std::vector<double>> pixels = {{762, 360}, {338.5, 345.25}, {1200, 1000}};

  FrameSideTest() { target.loadConfig(frameTarget()); }
  FrameSide find(const cv::Mat& image) { return findFramePoints(target, image, {ids, pixels}); }
  static cv::Mat image() { return discs(discGrid()); }
};

TEST_F(FrameSideTest, TakesTheDetectedPointNearEachExpectedPixel) {
  const FrameSide side = find(image());
  ASSERT_EQ(side.points.size(), 3U);
  EXPECT_EQ(side.points[0].id, 21);
  EXPECT_NEAR(side.points[0].x, 760, 0.05);
  EXPECT_NEAR(side.points[0].y, 352, 0.05);
  EXPECT_EQ(side.points[1].id, 22);
  EXPECT_NEAR(side.points[1].x, 340, 0.05);
}

TEST_F(FrameSideTest, AFramePointThatIsNotThereKeepsAnEmptyEntry) {
  const FrameSide side = find(image());
  EXPECT_EQ(side.points[2].id, -1);
  EXPECT_EQ(side.points[2].x, 0.0);
  EXPECT_EQ(side.points[2].y, 0.0);
  EXPECT_TRUE(side.points[2].edge_points.empty());
}

TEST_F(FrameSideTest, PictureShowsCentresEdgesAndNumbers) {
  const cv::Mat original = image();
  const cv::Mat kept = original.clone();
  const FrameSide side = find(original);
  ASSERT_EQ(side.picture.type(), CV_8UC3);
  const cv::Vec3b red(0, 0, 255);
  EXPECT_EQ(side.picture.at<cv::Vec3b>(352, 762), red);  // The frame's point.
  EXPECT_EQ(side.picture.at<cv::Vec3b>(352, 761), red);  // The detected point.
  EXPECT_EQ(side.picture.at<cv::Vec3b>(652, 521), red);
  EXPECT_NE(side.picture.at<cv::Vec3b>(652, 522), red);  // Detected, but no point of the frame.
  EXPECT_EQ(side.picture.at<cv::Vec3b>(0, 2), red);      // The missing point's circle stands at the origin.
  cv::Mat green;
  cv::inRange(side.picture, cv::Scalar(0, 255, 0), cv::Scalar(0, 255, 0), green);
  EXPECT_GT(cv::countNonZero(green(cv::Rect(500, 632, 40, 40))), 40);  // The edge all round.
  EXPECT_EQ(cv::countNonZero(green(cv::Rect(513, 645, 14, 14))), 0);
  EXPECT_EQ(cv::norm(original, kept, cv::NORM_INF), 0.0);
}

TEST_F(FrameSideTest, ColourImagesAreTakenAsRgbaWhateverTheyAre) {
  cv::Mat colour;
  cv::cvtColor(image(), colour, cv::COLOR_GRAY2BGR);
  cv::multiply(colour, cv::Scalar(1.0, 0.5, 0.25), colour);  // The ground becomes (200, 100, 50).
  const FrameSide side = find(colour);
  // 0.299 * 200 + 0.587 * 100 + 0.114 * 50; taken as blue, green, red it would be 96.
  EXPECT_EQ(side.picture.at<cv::Vec3b>(900, 900), cv::Vec3b(124, 124, 124));
  EXPECT_EQ(side.points[0].id, 21);

  cv::Mat four;
  cv::cvtColor(colour, four, cv::COLOR_BGR2BGRA);
  EXPECT_EQ(find(four).picture.at<cv::Vec3b>(900, 900), cv::Vec3b(124, 124, 124));
}

TEST_F(FrameSideTest, SixteenBitImagesAreStretched) {
  cv::Mat deep;
  image().convertTo(deep, CV_16U, 2.0, 100.0);
  const FrameSide side = find(deep);
  EXPECT_EQ(side.picture.at<cv::Vec3b>(900, 900), cv::Vec3b(255, 255, 255));
  EXPECT_EQ(side.points[0].id, 21);
}

TEST_F(FrameSideTest, ExpectationsThatAreTooShortAreRefused) {
  pixels.pop_back();
  EXPECT_THROW(find(image()), std::out_of_range);
  pixels.push_back({5});
  EXPECT_THROW(find(image()), std::out_of_range);
}

}  // namespace
