#include "diagnose/uncertainty/PictureNoise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/imgproc.hpp>

#include "support/NormalDraw.h"

namespace {

constexpr double kRounding = 1.0 / 12.0;

/// Discs on paper whose light falls off to the right.
cv::Mat discs() {
  cv::Mat picture(240, 320, CV_8UC1);
  for (int x = 0; x < picture.cols; ++x) picture.col(x) = 210 - x / 8;
  for (int y = 20; y < picture.rows; y += 30) {
    for (int x = 20; x < picture.cols; x += 30) cv::circle(picture, {x, y}, 8, 30, cv::FILLED, cv::LINE_AA);
  }
  return picture;
}

cv::Mat noisy(const cv::Mat& picture, double floor, double slope) {
  NormalDraw normal(3);
  cv::Mat result(picture.size(), CV_8UC1);
  for (int y = 0; y < picture.rows; ++y) {
    for (int x = 0; x < picture.cols; ++x) {
      const double grey = picture.at<std::uint8_t>(y, x);
      result.at<std::uint8_t>(y, x) =
          cv::saturate_cast<std::uint8_t>(grey + std::sqrt(floor + slope * grey) * normal());
    }
  }
  return result;
}

struct Noise {
  const char* name;
  double floor, slope;
};

struct PictureNoiseEstimate : testing::TestWithParam<Noise> {};

TEST_P(PictureNoiseEstimate, IsThatOfThePictureWhateverTheDiscs) {
  const auto& [name, floor, slope] = GetParam();
  const PictureNoise noise = estimateNoise(noisy(discs(), floor, slope));
  for (const double grey : {60.0, 200.0}) {
    const double truth = floor + slope * grey + kRounding;
    EXPECT_NEAR(noise.varianceAt(grey), truth, 0.15 * truth) << grey;
  }
}

INSTANTIATE_TEST_SUITE_P(All, PictureNoiseEstimate,
                         testing::Values(Noise{"even", 4.0, 0.0}, Noise{"of_light", 0.6, 0.02},
                                         Noise{"low", 0.5, 0.002}),
                         [](const auto& tested) { return tested.param.name; });

/// Of its bands, which hold as much of paper and discs as all of it.
TEST(PictureNoise, OfALargePictureIsThatOfAPartOfIt) {
  cv::Mat tiled;
  cv::repeat(discs(), 10, 6, tiled);
  const PictureNoise noise = estimateNoise(noisy(tiled, 0.6, 0.02));
  for (const double grey : {60.0, 200.0}) {
    const double truth = 0.6 + 0.02 * grey + kRounding;
    EXPECT_NEAR(noise.varianceAt(grey), truth, 0.1 * truth) << grey;
  }
}

TEST(PictureNoise, CleanPictureHasAlmostNone) { EXPECT_LT(estimateNoise(discs()).varianceAt(128), 0.1); }

TEST(PictureNoise, PictureWithoutAFlatPlaceTellsNothing) {
  const PictureNoise noise = estimateNoise(cv::Mat::zeros(4, 4, CV_8UC1));
  EXPECT_EQ(noise.floor, 0.0);
  EXPECT_EQ(noise.slope, 0.0);
}

TEST(PictureNoise, AddedNoiseHasTwiceTheVarianceOfTheGrey) {
  cv::Mat picture(200, 400, CV_8UC1, cv::Scalar(50));
  picture.colRange(200, 400) = 180;
  SeededRandom random(1);
  const cv::Mat more = withMoreNoise(picture, {1.0 + kRounding, 0.02}, random);
  for (const int half : {0, 1}) {
    cv::Scalar mean;
    cv::Scalar deviation;
    cv::meanStdDev(more.colRange(200 * half, 200 * half + 200), mean, deviation);
    const double grey = half == 0 ? 50.0 : 180.0;
    const double truth = 2.0 * (1.0 + 0.02 * grey + kRounding);  // Rounding comes back with the new greys.
    EXPECT_NEAR(mean[0], grey, 0.05);
    EXPECT_NEAR(deviation[0] * deviation[0], truth, 0.05 * truth);
  }
}

TEST(PictureNoise, AddedNoiseIsThatOfItsSeed) {
  const cv::Mat picture = discs();
  const auto with = [&](std::uint64_t seed) {
    SeededRandom random(seed);
    return withMoreNoise(picture, {2.0, 0.0}, random);
  };
  EXPECT_EQ(cv::norm(with(1), with(1), cv::NORM_INF), 0.0);
  EXPECT_GT(cv::norm(with(1), with(2), cv::NORM_INF), 0.0);
}

TEST(PictureNoise, NothingIsAddedToWhatHasOnlyItsRounding) {
  SeededRandom random(1);
  EXPECT_EQ(cv::norm(withMoreNoise(discs(), {0.05, 0.0}, random), discs(), cv::NORM_INF), 0.0);
}

}  // namespace
