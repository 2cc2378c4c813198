#include "diagnose/quality/Coverage.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

namespace diagnose {
namespace {

using Outline = std::vector<cv::Point2f>;

TEST(CoverageOutline, GoesHalfAStepBeyondTheDots) {
  const cv::Matx22d axes(10.0, 0.0, 0.0, 8.0);
  const Outline outline =
      boardOutline({{{20.0, 20.0}, axes}, {{60.0, 20.0}, axes}, {{20.0, 52.0}, axes}, {{60.0, 52.0}, axes}});
  EXPECT_NEAR(cv::contourArea(outline), 50.0 * 40.0, 1e-3);
  EXPECT_TRUE(boardOutline({}).empty());
}

TEST(CoverageShare, AddsWhatPairsCoverOnce) {
  Coverage coverage;
  EXPECT_EQ(coverage.share(), 0.0);
  const cv::Size picture(400, 200);
  coverage.add(Outline{{0, 0}, {199, 0}, {199, 199}, {0, 199}}, picture);
  EXPECT_NEAR(coverage.share(), 0.5, 0.01);
  coverage.add(Outline{{100, 0}, {299, 0}, {299, 199}, {100, 199}}, picture);
  EXPECT_NEAR(coverage.share(), 0.75, 0.01);
  coverage.add({}, picture);
  EXPECT_NEAR(coverage.share(), 0.75, 0.01);
}

TEST(CoverageShare, CountsNothingBeyondThePicture) {
  Coverage coverage;
  coverage.add(Outline{{-400, -400}, {800, -400}, {800, 800}, {-400, 800}}, {400, 200});
  EXPECT_EQ(coverage.share(), 1.0);
}

}  // namespace
}  // namespace diagnose
