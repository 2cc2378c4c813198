#include "diagnose/quality/DotLook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>

namespace diagnose {
namespace {

/// A dark disc of 8 pixels on bright ground.
cv::Mat disc() {
  cv::Mat picture(80, 80, CV_32F, cv::Scalar(200.0));
  cv::circle(picture, {40, 40}, 8, cv::Scalar(30.0), cv::FILLED);
  return picture;
}
const cv::Matx22d kAxes(25.0, 0.0, 0.0, 25.0);

TEST(DotLookAtADisc, TellsItsGreysAndRadius) {
  const auto look = lookAtDot(disc(), {{40.0, 40.0}, kAxes}, 1.0);
  ASSERT_TRUE(look);
  EXPECT_EQ(look->dot, 30.0);
  EXPECT_EQ(look->ground, 200.0);
  const double drawn = cv::countNonZero(disc() < 100.0);
  EXPECT_NEAR(look->radius * 25.0, std::sqrt(drawn / std::numbers::pi), 0.01);
  EXPECT_EQ(look->axes_scale, 25.0);
  EXPECT_TRUE(std::ranges::all_of(look->pixels, [](const NearPixel& pixel) { return pixel.reach < 0.5; }));
}

TEST(DotLookAtADisc, TellsHowThePictureStretchesTheBoard) {
  const auto look = lookAtDot(disc(), {{40.0, 40.0}, {30.0, 0.0, 0.0, 20.0}}, 1.0);
  ASSERT_TRUE(look);
  for (const NearPixel& pixel : look->pixels) {
    EXPECT_GE(pixel.pixels_a_step, 20.0 - 1e-9);
    EXPECT_LE(pixel.pixels_a_step, 30.0 + 1e-9);
  }
}

TEST(DotLookAtADisc, IsNoneAtTheRimAndOnEvenGround) {
  EXPECT_FALSE(lookAtDot(disc(), {{5.0, 40.0}, kAxes}, 1.0));
  EXPECT_FALSE(lookAtDot(cv::Mat(80, 80, CV_32F, cv::Scalar(9.0)), {{40.0, 40.0}, kAxes}, 1.0));
}

}  // namespace
}  // namespace diagnose
