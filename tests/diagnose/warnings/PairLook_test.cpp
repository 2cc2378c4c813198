#include "diagnose/warnings/PairLook.h"

#include <gtest/gtest.h>

#include <cmath>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

/// A scene's pair, looked at without its pictures.
PairLook lookAt(WatchedScene& watched, const PairObservation* seen = nullptr) {
  watched.tellFacts();
  watched.scene.left_from_board.push_back(
      scene::fitPose(watched.scene.rig, watched.scene.board, {12.0, -9.0, 3.0, 0.97}));
  const PairObservation found = seen != nullptr ? *seen : watched.seenIn(0);
  const cv::Mat none;
  return lookAtPair(watched.facts, camerasOf(watched.facts), {3, {none, none}, found, {}});
}

TEST(PairLook, ShowsTheBaselineOfTheScene) {
  WatchedScene watched;
  const PairLook look = lookAt(watched);
  EXPECT_EQ(look.index, 3U);
  ASSERT_TRUE(look.baseline);
  const auto& way = watched.scene.given.right_from_left_translation;
  EXPECT_NEAR(cv::norm(*look.baseline), std::hypot(way.x, way.y, way.z), 1.0);
  ASSERT_TRUE(look.scale);
  EXPECT_NEAR(look.scale->value, 1.0, 1e-3);
  EXPECT_FALSE(look.raw_offset);
}

TEST(PairLook, SaysNothingOfAFrameAndOfNoDots) {
  WatchedScene watched;
  const PairObservation nothing;
  const PairLook empty = lookAt(watched, &nothing);
  EXPECT_FALSE(empty.baseline);
  EXPECT_FALSE(empty.sides[0].has_place);
  watched.facts.board.clear();  // As with the fixed points of a frame.
  const PairObservation seen = watched.seenIn(0);
  const cv::Mat none;
  EXPECT_FALSE(lookAtPair(watched.facts, camerasOf(watched.facts), {0, {none, none}, seen, {}}).baseline);
}

TEST(PairLook, TakesTheDotsOfACropToTheirPlaceInThePicture) {
  WatchedScene watched;
  lookAt(watched);
  PairObservation seen = watched.seenIn(0);
  for (SharedDot& dot : seen.raw) {
    dot.left -= cv::Point2f(16.0F, 12.0F);
    dot.right -= cv::Point2f(16.0F, 12.0F);
  }
  watched.facts.origin = {16, 12};
  const cv::Mat none;
  const PairLook look = lookAtPair(watched.facts, camerasOf(watched.facts), {0, {none, none}, seen, {}});
  ASSERT_TRUE(look.sides[0].place);
  EXPECT_LT(look.sides[0].place->rms, 0.05);
}

TEST(PairLook, ShowsNoBaselineOfABoardSeenFromBehindAndNoneThatIsNotTold) {
  WatchedScene watched;
  lookAt(watched);
  PairObservation seen = watched.seenIn(0);
  for (SharedDot& dot : seen.raw) dot.id = dot.id / 11 * 11 + 10 - dot.id % 11;
  EXPECT_FALSE(lookAt(watched, &seen).baseline);
  watched.tellFacts();
  for (std::size_t k = 3; k < 6; ++k) watched.facts.calib->extrinsics.at(k) = 0.0;
  const cv::Mat none;
  seen = watched.seenIn(0);
  const PairLook look = lookAtPair(watched.facts, camerasOf(watched.facts), {0, {none, none}, seen, {}});
  EXPECT_TRUE(look.sides[0].place);
  EXPECT_FALSE(look.baseline);
  EXPECT_FALSE(look.scale);
}

TEST(PairLookMisfit, MayBeLargerInLargerPictures) {
  EXPECT_DOUBLE_EQ(mostMisfit(640), 0.7);
  EXPECT_DOUBLE_EQ(mostMisfit(4000), 2.0);
}

}  // namespace
}  // namespace diagnose
