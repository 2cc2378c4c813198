#include "diagnose/warnings/OtherPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

TEST(OtherPictures, ExplainNothingWhereNothingFits) {
  WatchedScene watched;
  watched.tellFacts();
  const CalibratedCamera camera(*watched.facts.calib, 0, watched.facts.model);
  std::vector<BoardSight> sights;
  // Dots that bend up and down by some pixels, as no calibration of other pictures makes them.
  for (int id = 0; id < 99; ++id)
    sights.push_back({id,
                      watched.facts.board.at(static_cast<std::size_t>(id)),
                      {60.0 + 20.0 * (id % 11), 50.0 + 18.0 * (id / 11) + (id % 2 == 0 ? 2.0 : -2.0)}});
  const Explained explained = explainMisfit({{&camera, sights, {320, 256}}}, 0.7);
  EXPECT_EQ(explained.text, "");
  EXPECT_FALSE(explained.is_board);
}

/// The dots of a board as cameras of the calibration would have them, at two tilts, and moved by some pixels.
std::vector<SeenBoard> movedBy(WatchedScene& watched, const CalibratedCamera& camera, const cv::Point2d& by) {
  std::vector<SeenBoard> pictures;
  for (const double tilt : {25.0, -25.0}) {
    watched.scene.left_from_board.push_back(
        scene::fitPose(watched.scene.rig, watched.scene.board, {tilt, 0.6 * tilt, 3.0, 0.9}));
    SeenBoard seen{&camera, {}, {640, 512}};
    for (const SharedDot& dot : watched.seenIn(pictures.size()).raw) {
      const cv::Point2d pixel(dot.left);
      seen.sights.push_back({dot.id, watched.facts.board.at(static_cast<std::size_t>(dot.id)), pixel + by});
    }
    pictures.push_back(std::move(seen));
  }
  return pictures;
}

TEST(OtherPictures, TakeAShiftForACropOnlyFromAFiftiethOfASideOn) {
  WatchedScene watched(scene::brownRig({640, 512, 60.0}));
  watched.tellFacts();
  const CalibratedCamera camera(*watched.facts.calib, 0, watched.facts.model);
  const Explained crop = explainMisfit(movedBy(watched, camera, {0.0, -12.0}), 0.05);
  EXPECT_THAT(crop.text, ::testing::HasSubstr("about 0 columns and 12 rows apart"));
  ASSERT_EQ(crop.each.size(), 2U);
  EXPECT_LT(std::max(crop.each[0], crop.each[1]), 0.03);
  watched.scene.left_from_board.clear();
  EXPECT_EQ(explainMisfit(movedBy(watched, camera, {0.0, -8.0}), 0.05).text, "");
}

}  // namespace
}  // namespace diagnose
