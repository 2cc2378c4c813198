#include "diagnose/quality/MeasureQuality.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/imgproc.hpp>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

using polarline::PictureQuality;

/// The left picture of a scene without vignette, and where its dots are.
struct Measured {
  WatchedScene watched;
  cv::Mat picture;
  std::vector<NumberedDot> dots;

  explicit Measured(const std::function<void(scene::Optics&)>& change = {}) {
    scene::Optics& optics = watched.scene.optics;
    optics.vignette = optics.gradient_x = optics.gradient_y = 0.0;
    if (change) change(optics);
    watched.tellFacts();
    watched.scene.left_from_board.push_back(
        scene::fitPose(watched.scene.rig, watched.scene.board, {6.0, -9.0, 3.0, 0.97}));
    picture = scene::renderPair(watched.scene, 0).left;
    for (const scene::DotTruth& dot : scene::pairTruth(watched.scene, 0).dots)
      dots.push_back({dot.id, {dot.ellipse_left.centre.x, dot.ellipse_left.centre.y}});
  }
  PictureQuality quality() const { return measureQuality(picture, dots, watched.facts.grid); }
};

TEST(MeasureQualityLight, IsThatOfTheScene) {
  const PictureQuality quality = Measured().quality();
  EXPECT_EQ(quality.full_scale, 255.0);
  EXPECT_NEAR(quality.ground, 215.0, 1.0);
  EXPECT_NEAR(quality.dot, 22.0, 1.0);
  EXPECT_NEAR(quality.contrast, 193.0 / 255.0, 0.01);
  // Variance of a pixel: read noise squared, shot noise, digitisation.
  EXPECT_NEAR(quality.noise, std::sqrt(0.8 * 0.8 + 0.01 * 215.0 + 1.0 / 12.0), 0.1);
  EXPECT_EQ(quality.saturated, 0.0);
  EXPECT_GT(quality.dots, 80U);
}

TEST(MeasureQualityLight, TakesBrightDotsAsWell) {
  const PictureQuality quality = Measured([](scene::Optics& optics) { std::swap(optics.paper, optics.ink); }).quality();
  EXPECT_NEAR(quality.dot, 215.0, 1.0);
  EXPECT_NEAR(quality.ground, 22.0, 1.0);
}

TEST(MeasureQualityLight, TakesTenBitsAndColour) {
  const PictureQuality deep = Measured([](scene::Optics& optics) { optics.bits = 10; }).quality();
  EXPECT_EQ(deep.full_scale, 1023.0);
  EXPECT_NEAR(deep.ground, 215.0 * 1023.0 / 255.0, 4.0);
  const PictureQuality colour = Measured([](scene::Optics& optics) { optics.channels = 3; }).quality();
  EXPECT_NEAR(colour.ground, 215.0 * (0.93 + 1.0 + 0.97) / 3.0, 2.0);
}

TEST(MeasureQualityLight, CountsSaturatedPixels) {
  Measured scene;
  const double before = scene.quality().saturated;
  scene.picture.setTo(255, scene.picture > 118);
  const double after = scene.quality().saturated;
  EXPECT_EQ(before, 0.0);
  // Of half a step around a dot the disc of 0.3 steps is dark.
  EXPECT_NEAR(after, 1.0 - 0.3 * 0.3 / (0.5 * 0.5), 0.08);
}

class MeasureQualityEdges : public ::testing::TestWithParam<double> {};

TEST_P(MeasureQualityEdges, AreAsWideAsTheBlurAndAPixel) {
  const Measured scene([](scene::Optics& optics) { optics.blur_sigma = GetParam(); });
  const PictureQuality quality = scene.quality();
  EXPECT_NEAR(quality.edge_width, std::sqrt(GetParam() * GetParam() + 1.0 / 12.0), 0.08 * GetParam());
  EXPECT_NEAR(quality.edge_width_along / quality.edge_width_across, 1.0, 0.05);
}

INSTANTIATE_TEST_SUITE_P(Sigmas, MeasureQualityEdges, ::testing::Values(0.7, 1.0, 1.5));

class MeasureQualityMotion : public ::testing::TestWithParam<double> {};

TEST_P(MeasureQualityMotion, HasItsDirection) {
  Measured scene;
  constexpr int kLength = 7;
  cv::Mat smear = cv::Mat::zeros(kLength, kLength, CV_32F);
  smear.row(kLength / 2).setTo(1.0 / kLength);
  const cv::Mat turn = cv::getRotationMatrix2D(cv::Point2f(kLength / 2, kLength / 2), -GetParam(), 1.0);
  cv::warpAffine(smear, smear, turn, smear.size());
  smear /= cv::sum(smear)[0];
  cv::filter2D(scene.picture, scene.picture, -1, smear, {-1, -1}, 0.0, cv::BORDER_REFLECT);
  const PictureQuality quality = scene.quality();
  const double off = std::abs(quality.blur_direction - GetParam());
  EXPECT_LT(std::min(off, 180.0 - off), 6.0) << quality.blur_direction;
  // A box of seven pixels has the variance 49/12.
  const double smeared = std::sqrt(std::pow(quality.edge_width_along, 2) - std::pow(quality.edge_width_across, 2));
  EXPECT_NEAR(smeared, std::sqrt(49.0 / 12.0), 0.5);
}

INSTANTIATE_TEST_SUITE_P(Directions, MeasureQualityMotion, ::testing::Values(0.0, 30.0, 90.0, 120.0));

TEST(MeasureQualityBoard, IsItsShareOfThePicture) {
  const Measured scene;
  const PictureQuality quality = scene.quality();
  std::vector<cv::Point2f> corners;
  for (const int id : {0, 10, 98, 88}) {
    const cv::Point2d& at = scene.dots.at(static_cast<std::size_t>(id)).pixel;
    corners.emplace_back(static_cast<float>(at.x), static_cast<float>(at.y));
  }
  // Half a step more on each side: 11 x 9 steps in place of 10 x 8.
  EXPECT_NEAR(quality.board_share, cv::contourArea(corners) * 99.0 / 80.0 / (320.0 * 256.0), 0.01);
  // The dots' radius is 0.3 steps.
  EXPECT_NEAR(quality.dot_radius, 0.3 * std::sqrt(cv::contourArea(corners) / 80.0), 0.1);
}

TEST(MeasureQualityWithoutDots, TakesTheWholePicture) {
  const Measured scene;
  const PictureQuality quality = measureQuality(scene.picture, {}, scene.watched.facts.grid);
  EXPECT_EQ(quality.dots, 0U);
  EXPECT_NEAR(quality.ground, 215.0, 4.0);
  EXPECT_NEAR(quality.dot, 22.0, 4.0);
  EXPECT_TRUE(std::isnan(quality.edge_width));
  EXPECT_TRUE(std::isnan(quality.board_share));
}

TEST(MeasureQualityWithoutDots, SaysNothingOfNoPicture) {
  EXPECT_TRUE(std::isnan(measureQuality(cv::Mat(), {}, {}).contrast));
  EXPECT_TRUE(std::isnan(measureQuality(cv::Mat(8, 8, CV_32F, cv::Scalar(1)), {}, {}).contrast));
}

TEST(MeasureQualityOfAPair, CoversWhatTheLesserPictureDoes) {
  PictureQuality left, right;
  left.board_share = 0.5;
  right.board_share = 0.4;
  EXPECT_EQ(pairQuality(left, right).coverage, 0.4);
}

}  // namespace
}  // namespace diagnose
