#include "refine/edge/LightField.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

/// 200 exp(1e-4 (x - 300) - 1e-6 (y - 200)^2): its slopes are 1e-4 and -2e-6 (y - 200).
double greyAt(double x, double y) { return 200.0 * std::exp(1e-4 * (x - 300.0) - 1e-6 * (y - 200.0) * (y - 200.0)); }

std::vector<refine::PaperGrey> places() {
  std::vector<refine::PaperGrey> result;
  for (int x = 0; x <= 600; x += 60) {
    for (int y = 0; y <= 400; y += 50) result.push_back({{1.0 * x, 1.0 * y}, greyAt(x, y)});
  }
  return result;
}

TEST(LightFieldSlope, IsThatOfTheLight) {
  const refine::LightField light(places());
  EXPECT_NEAR(light.slopeAt({100.0, 300.0}).x, 1e-4, 1e-9);
  EXPECT_NEAR(light.slopeAt({100.0, 300.0}).y, -2e-4, 1e-9);
  EXPECT_NEAR(light.greyAt({100.0, 300.0}), greyAt(100.0, 300.0), 1e-6);
}

TEST(LightFieldSlope, OverlooksAStain) {
  auto stained = places();
  stained[40].grey = 20.0;
  EXPECT_NEAR(refine::LightField(stained).slopeAt({100.0, 300.0}).x, 1e-4, 2e-5);
}

TEST(LightFieldSlope, IsNothingWithFewPlacesOrInALine) {
  EXPECT_EQ(refine::LightField().slopeAt({3.0, 4.0}), cv::Point2d());
  const std::vector<refine::PaperGrey> few(5, {{1.0, 2.0}, 150.0});
  EXPECT_EQ(refine::LightField(few).slopeAt({3.0, 4.0}), cv::Point2d());
  EXPECT_NEAR(refine::LightField(few).greyAt({3.0, 4.0}), 150.0, 1e-9);
}

}  // namespace
