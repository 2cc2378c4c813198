#include "check/run/PictureWarnings.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace polarline {
namespace {

const ListedPair kPair{2, "l.png", "r.png", ""};
const std::array<cv::Size, 2> kSmall = {cv::Size(64, 48), cv::Size(64, 48)};
const std::array<cv::Size, 2> kLarge = {cv::Size(640, 480), cv::Size(640, 480)};

struct PictureWarningsOf : ::testing::Test {
  PolarConfig config;
  StereoCalibParams calib;
  PictureWarnings warnings;

  PictureWarningsOf() { config.triangulate_residual_switch = 0; }
  void centredAt(double x, double y) {
    for (CameraCalib* camera : {&calib.left, &calib.right}) camera->intrinsics = {500.0, 500.0, x, y};
  }
  void calibratedAt(std::uint32_t width, std::uint32_t height) {
    for (CameraCalib* camera : {&calib.left, &calib.right}) {
      camera->width = width;
      camera->height = height;
    }
  }
};

TEST_F(PictureWarningsOf, PicturesAsTheyShouldBeAreNone) {
  calibratedAt(64, 48);
  warnings.begin(config, calib);
  warnings.look(0, kPair, kSmall, false);
  warnings.look(1, kPair, kSmall, true);
  EXPECT_TRUE(warnings.warnings.empty());
}

TEST_F(PictureWarningsOf, AnotherSizeThanTheCalibrationIsToldOnce) {
  calibratedAt(64, 48);
  warnings.begin(config, calib);
  warnings.look(3, kPair, kLarge, false);
  warnings.look(4, kPair, kLarge, false);
  ASSERT_EQ(warnings.warnings.size(), 1U);
  EXPECT_EQ(warnings.warnings[0].code, "picture_size");
  EXPECT_EQ(warnings.warnings[0].pair, 3);
  EXPECT_EQ(warnings.warnings[0].text, "l.png is 640 x 480 pixels; the calibration is for 64 x 48");
  EXPECT_FALSE(warnings.warnings[0].advice.empty());
}

TEST_F(PictureWarningsOf, AnotherSizeThanThePairsBeforeIsToldWhereTheCalibrationKnowsNone) {
  warnings.begin(config, calib);
  warnings.look(0, kPair, kLarge, false);
  EXPECT_TRUE(warnings.warnings.empty());
  warnings.look(1, kPair, kSmall, false);
  ASSERT_EQ(warnings.warnings.size(), 1U);
  EXPECT_EQ(warnings.warnings[0].text, "l.png is 64 x 48 pixels; the pictures before are 640 x 480");
}

TEST_F(PictureWarningsOf, UnlikeSizesOfAPairAreTold) {
  warnings.begin(config, calib);
  warnings.look(0, kPair, {kLarge[0], kSmall[1]}, false);
  ASSERT_EQ(warnings.warnings.size(), 1U);
  EXPECT_EQ(warnings.warnings[0].text, "l.png is 640 x 480, r.png is 64 x 48 pixels");
}

TEST_F(PictureWarningsOf, PicturesThatCannotBeHadAreNotJudged) {
  calibratedAt(64, 48);
  warnings.begin(config, calib);
  warnings.look(0, kPair, {kSmall[0], cv::Size()}, false);
  EXPECT_TRUE(warnings.warnings.empty());
}

TEST_F(PictureWarningsOf, ColourIsToldWhereGreyIsWanted) {
  config.triangulate_residual_switch = 1;
  centredAt(32, 24);
  warnings.begin(config, calib);
  warnings.look(0, kPair, kSmall, false);
  EXPECT_TRUE(warnings.warnings.empty());
  warnings.look(1, kPair, kSmall, true);
  ASSERT_EQ(warnings.warnings.size(), 1U);
  EXPECT_EQ(warnings.warnings[0].code, "colour_pictures");
  EXPECT_EQ(warnings.warnings[0].pair, 1);
}

TEST_F(PictureWarningsOf, ColourIsNoMatterOfPairsThatAreRectified) {
  config.triangulate_residual_switch = 1;
  warnings.begin(config, calib);
  warnings.look(0, kPair, kSmall, true);
  EXPECT_TRUE(warnings.warnings.empty());
}

TEST_F(PictureWarningsOf, APrincipalPointInThePicturesIsNone) {
  for (const auto& [x, y] : {std::pair{0.0, 0.0}, {639.5, 479.5}}) {
    centredAt(x, y);
    warnings.begin(config, calib);
    warnings.look(0, kPair, kLarge, false);
    EXPECT_EQ(std::ranges::count(warnings.warnings, "principal_point_outside", &Warning::code), 0) << x;
  }
}

TEST_F(PictureWarningsOf, APrincipalPointOutsideIsTold) {
  for (const auto& [x, y] : {std::pair{647.5, 395.0}, {640.0, 0.0}, {0.0, 480.0}, {-1.0, 0.0}, {0.0, -1.0}}) {
    PictureWarnings of;
    centredAt(x, y);
    of.begin(config, calib);
    of.look(2, kPair, kLarge, false);
    of.look(3, kPair, kLarge, false);
    ASSERT_EQ(of.warnings.size(), 1U) << x << ", " << y;
    EXPECT_EQ(of.warnings[0].code, "principal_point_outside");
    EXPECT_EQ(of.warnings[0].pair, 2);
    EXPECT_FALSE(of.warnings[0].advice.empty());
  }
  centredAt(647.5, 395);
  warnings.begin(config, calib);
  warnings.look(0, kPair, kLarge, false);
  EXPECT_EQ(warnings.warnings[0].text,
            "l.png is 640 x 480 pixels; the calibration's principal point (Cx, Cy) is 647.5, 395");
}

TEST_F(PictureWarningsOf, APrincipalPointFarFromTheMiddleIsTold) {
  centredAt(160.0, 240.0);
  warnings.begin(config, calib);
  warnings.look(0, kPair, kLarge, false);
  ASSERT_EQ(warnings.warnings.size(), 1U);
  EXPECT_EQ(warnings.warnings[0].code, "principal_point");
  EXPECT_EQ(warnings.warnings[0].text,
            "l.png is 640 x 480 pixels; the middle of the lens (Cx, Cy) lies 25 % of a side from its middle");
}

TEST_F(PictureWarningsOf, APrincipalPointFarFromTheMiddleIsNotToldWhereTheCalibrationKnowsItsSize) {
  centredAt(150.0, 190.0);
  calibratedAt(640, 480);
  warnings.begin(config, calib);
  warnings.look(0, kPair, kLarge, false);
  EXPECT_TRUE(warnings.warnings.empty());
}

}  // namespace
}  // namespace polarline
