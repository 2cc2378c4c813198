#include "diagnose/uncertainty/PairNoise.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/NormalDraw.h"
#include "support/RenderedPair.h"

namespace {

constexpr int kColumns = 10;

std::vector<SharedDot> dotsAt(float scale, bool turned) {
  std::vector<SharedDot> dots;
  for (std::int32_t id = 0; id < 80; ++id) {
    const auto x = static_cast<float>(12 * (id % kColumns));
    const auto y = static_cast<float>(12 * (id / kColumns));
    const cv::Point2f pixel = turned ? cv::Point2f(-y, x) : cv::Point2f(x, y);
    dots.push_back({id, scale * pixel + cv::Point2f(30, 40), scale * pixel + cv::Point2f(10, 40)});
  }
  return dots;
}

CentreNoise measuredNoise() {
  CentreNoise noise;
  for (const SharedDot& dot : dotsAt(1.0F, false)) noise[dot.id] = {cv::Point2d(dot.left), {0.01, 0.002}};
  return noise;
}

TEST(PairNoise, IsScaledAndTurnedToTheDots) {
  const auto noise = noiseOf(dotsAt(2.0F, true), {measuredNoise(), measuredNoise()}, kColumns);
  ASSERT_TRUE(noise);
  for (const CentreNoise& side : {noise->left, noise->right}) {
    ASSERT_EQ(side.size(), 80U);
    EXPECT_NEAR(side.at(7).shift[0], -0.004, 1e-6);
    EXPECT_NEAR(side.at(7).shift[1], 0.02, 1e-6);
  }
}

TEST(PairNoise, SideWithoutMeasuredNoiseTakesTheScatterOfItsDots) {
  std::vector<SharedDot> dots = dotsAt(1.0F, false);
  NormalDraw normal(1);
  for (SharedDot& dot : dots) dot.right += cv::Point2f(static_cast<float>(0.1 * normal()), 0.0F);
  const auto noise = noiseOf(dots, {measuredNoise(), {}}, kColumns);
  ASSERT_TRUE(noise);
  EXPECT_NEAR(noise->left.at(3).shift[0], 0.01, 1e-6);
  double squares = 0.0;
  for (const auto& [id, centre] : noise->right) {
    squares += centre.shift[0] * centre.shift[0] / 80.0;
    EXPECT_NEAR(centre.shift[1], 0.0, 1e-4);
  }
  EXPECT_NEAR(std::sqrt(squares), 0.1, 0.02);
}

TEST(PairNoise, FiveDotsAreTooFew) {
  std::vector<SharedDot> dots = dotsAt(1.0F, false);
  dots.resize(5);
  EXPECT_FALSE(noiseOf(dots, {measuredNoise(), measuredNoise()}, kColumns));
}

TEST(PairNoise, EachPictureHasItsOwn) {
  const RenderedPair& pair = RenderedPair::small();
  const ConsoleCapture quiet;
  const PairNoise noise = pairNoise(pair.left(), pair.right(), {}, pair.target(), {}, 1).raw;
  ASSERT_GT(noise.left.size(), 200U);
  ASSERT_GT(noise.right.size(), 200U);
  EXPECT_NE(noise.left.at(100).shift, noise.right.at(100).shift);
  const PairNoise again = pairNoise(pair.left(), pair.right(), {}, pair.target(), {}, 1).raw;
  EXPECT_EQ(noise.left.at(100).shift, again.left.at(100).shift);
  EXPECT_NE(noise.left.at(100).shift,
            pairNoise(pair.left(), pair.right(), {}, pair.target(), {}, 2).raw.left.at(100).shift);
}

}  // namespace
