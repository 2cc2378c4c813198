#include "report/picture/Rectifier.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "polarline/detect.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

struct RectifierOf : ::testing::Test {
  CopiedSet set;
  Json document = made_document::json(set.check());
};

/// The dots of the pictures made once more lie where the run's were.
TEST_F(RectifierOf, APairGivesThePicturesOfTheRun) {
  const Rectifier rectifier(document, knownCameras(document));
  ASSERT_TRUE(rectifier.hasRun());
  const auto pictures = rectifier.of(0, set.picture("left_0.png"), set.picture("right_0.png"));
  ASSERT_TRUE(pictures);
  const Json& points = document["pairs"][0]["points"];
  std::size_t compared = 0;
  for (const Dot& dot : detect(pictures->left, set.file("target.ini")).dots) {
    for (std::size_t k = 0; k < points["id"].size(); ++k) {
      if (points["id"][k] != dot.id || !points["rectified_left_x"][k].is_number()) continue;
      EXPECT_NEAR(dot.x, points["rectified_left_x"][k].get<double>(), 1e-4);
      EXPECT_NEAR(dot.y, points["rectified_left_y"][k].get<double>(), 1e-4);
      ++compared;
    }
  }
  EXPECT_GT(compared, 10U);
}

TEST_F(RectifierOf, WhatIsNotKnownIsNone) {
  const cv::Mat picture = set.picture("left_0.png");
  EXPECT_FALSE(Rectifier(document, std::nullopt).of(0, picture, picture));
  EXPECT_FALSE(Rectifier(document, knownCameras(document)).of(0, picture, cv::Mat()));
}

TEST_F(RectifierOf, PairsRectifiedElsewhereAndFramesHaveNoOthers) {
  document["settings"]["frame_work"] = 1;
  EXPECT_FALSE(Rectifier(document, knownCameras(document)).hasRun());
  document["settings"]["frame_work"] = 0;
  EXPECT_TRUE(Rectifier(document, knownCameras(document)).hasRun());
  document["cameras"]["model"] = "rectified";
  EXPECT_FALSE(Rectifier(document, knownCameras(document)).hasRun());
}

/// A turned run's pictures stand upright where they lay.
TEST_F(RectifierOf, TurnsAsTheRunDoes) {
  document["settings"]["x_y"] = 1;
  const cv::Mat left = set.picture("left_0.png");
  const auto pictures = Rectifier(document, knownCameras(document)).of(0, left, set.picture("right_0.png"));
  ASSERT_TRUE(pictures);
  EXPECT_EQ(pictures->left.size(), cv::Size(left.rows, left.cols));
}

}  // namespace
}  // namespace polarline
