#include "diagnose/uncertainty/CentreNoise.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <opencv2/imgproc.hpp>

#include "Tallowfen/src/RingTarget.h"
#include "support/RenderedPair.h"

namespace {

double deviationOf(const CentreNoise& noise) {
  double squares = 0.0;
  for (const auto& [id, centre] : noise) squares += centre.shift.dot(centre.shift);
  return std::sqrt(squares / static_cast<double>(2 * noise.size()));
}

/// What the detection itself makes of pictures of the same scene with other noise: deviation of a coordinate.
double deviationOverPictures(const RenderedPair& pair, std::uint64_t pictures) {
  struct Sums {
    double count = 0.0;
    cv::Vec2d sum, squares;
  };
  std::map<std::int32_t, Sums> dots;
  scene::Scene scene = pair.scene();
  for (std::uint64_t seed = 50; seed < 50 + pictures; ++seed) {
    scene.seed = seed;
    kestrune::RingTarget target;
    target.loadConfig(pair.target());
    kestrune::RingTarget::Points points;
    kestrune::RingTarget::Points unidentified;
    target.detect(scene::renderPair(scene, 0).left, points, unidentified, cv::Mat());
    for (const auto& point : points) {
      const cv::Vec2d centre(point.x, point.y);
      Sums& sums = dots[point.id];
      sums.count += 1.0;
      sums.sum += centre;
      sums.squares += centre.mul(centre);
    }
  }
  double squares = 0.0;
  double freedom = 0.0;
  for (const auto& [id, sums] : dots) {
    const cv::Vec2d about_mean = sums.squares - sums.sum.mul(sums.sum) / sums.count;
    squares += about_mean[0] + about_mean[1];
    freedom += 2.0 * (sums.count - 1.0);
  }
  return std::sqrt(squares / freedom);
}

TEST(CentreNoise, IsWhatOtherPicturesOfTheSceneDifferBy) {
  const RenderedPair& pair = RenderedPair::small();
  const ConsoleCapture quiet;
  SeededRandom random(1);
  const double truth = deviationOverPictures(pair, 6);
  EXPECT_NEAR(deviationOf(centreNoise(pair.left(), {}, pair.target(), {}, random).raw), truth, 0.2 * truth);
}

TEST(CentreNoise, TellsWhereTheDotsAre) {
  const RenderedPair& pair = RenderedPair::small();
  const ConsoleCapture quiet;
  SeededRandom random(1);
  const CentreNoise noise = centreNoise(pair.left(), {}, pair.target(), {}, random).raw;
  ASSERT_GT(noise.size(), 200U);
  for (const auto& [id, centre] : noise) {
    const auto& truth = pair.truth().dots.at(static_cast<std::size_t>(id)).ellipse_left.centre;
    EXPECT_NEAR(centre.centre[0], truth.x, 0.2);
    EXPECT_NEAR(centre.centre[1], truth.y, 0.2);
  }
}

/// Enlarged a little, about a place that shows the whole board.
TEST(CentreNoise, RectifiedOneIsOfTheWarpedPicture) {
  const RenderedPair& pair = RenderedPair::small();
  const ConsoleCapture quiet;
  SeededRandom random(1);
  const Warp moved = [](const cv::Mat& picture) {
    cv::Mat output;
    const cv::Mat by = (cv::Mat_<double>(2, 3) << 1.2, 0.0, -20.5, 0.0, 1.2, -15.25);
    cv::warpAffine(picture, output, by, picture.size());
    return output;
  };
  const SideNoise noise = centreNoise(pair.left(), moved, pair.target(), {}, random);
  ASSERT_GT(noise.rectified.size(), 200U);
  for (const auto& [id, centre] : noise.rectified) {
    const auto raw = noise.raw.find(id);
    if (raw == noise.raw.end()) continue;
    EXPECT_NEAR(centre.centre[0], 1.2 * raw->second.centre[0] - 20.5, 0.1);
    EXPECT_NEAR(centre.centre[1], 1.2 * raw->second.centre[1] - 15.25, 0.1);
  }
  EXPECT_NEAR(deviationOf(noise.rectified), 1.2 * deviationOf(noise.raw), 0.3 * deviationOf(noise.raw));
}

/// Half of what was found is taken out of the memory, so that what comes of it is seen.
TEST(CentreNoise, WhatTheRunFoundIsNotSearchedAgain) {
  const RenderedPair& pair = RenderedPair::small();
  const Warp brighter = [](const cv::Mat& picture) {
    cv::Mat output = picture + 1;
    return output;
  };
  const ConsoleCapture quiet;
  SeededRandom random(1);
  const SideNoise all = centreNoise(pair.left(), brighter, pair.target(), {}, random);
  DetectionMemory known;
  kestrune::RingTarget target;
  target.loadConfig(pair.target());
  auto& found = const_cast<Detection&>(known.detect(target, pair.left()));
  found.points.resize(found.points.size() / 2);
  random = SeededRandom(1);
  const SideNoise half = centreNoise(pair.left(), brighter, pair.target(), known, random);

  EXPECT_NEAR(static_cast<double>(half.raw.size()), 0.5 * static_cast<double>(all.raw.size()), 2.0);
  for (const auto& [id, centre] : half.raw) EXPECT_EQ(all.raw.at(id).shift, centre.shift) << id;
  EXPECT_EQ(half.rectified.size(), all.rectified.size()) << "that picture is not known";
}

TEST(CentreNoise, PictureWithoutABoardHasNone) {
  const ConsoleCapture quiet;
  SeededRandom random(1);
  const std::string& target = RenderedPair::small().target();
  EXPECT_TRUE(centreNoise(cv::Mat(200, 300, CV_8UC1, cv::Scalar(90)), {}, target, {}, random).raw.empty());
  EXPECT_TRUE(centreNoise(cv::Mat(), {}, target, {}, random).raw.empty());
  EXPECT_TRUE(centreNoise(cv::Mat(200, 300, CV_32FC1, cv::Scalar(90)), {}, target, {}, random).raw.empty());
}

}  // namespace
