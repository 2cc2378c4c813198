#include "diagnose/warnings/BoardPlace.h"

#include <gtest/gtest.h>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

/// The left picture's dots of a scene, where its circles' centres are.
struct BoardPlaceOfAScene : ::testing::Test {
  WatchedScene watched;
  scene::PairTruth truth;
  std::vector<BoardSight> sights;

  BoardPlaceOfAScene() {
    watched.tellFacts();
    watched.scene.left_from_board.push_back(
        scene::fitPose(watched.scene.rig, watched.scene.board, {12.0, -9.0, 30.0, 0.9}));
    truth = scene::pairTruth(watched.scene, 0);
    for (const scene::DotTruth& dot : truth.dots)
      sights.push_back(
          {dot.id, watched.facts.board.at(static_cast<std::size_t>(dot.id)), {dot.pixel_left.x, dot.pixel_left.y}});
  }
  CalibratedCamera camera() const { return {*watched.facts.calib, 0, watched.facts.model}; }
};

TEST_F(BoardPlaceOfAScene, IsItsPose) {
  const auto place = placeBoard(camera(), sights);
  ASSERT_TRUE(place);
  EXPECT_LT(place->rms, 1e-4);
  EXPECT_EQ(place->fitting, 1.0);
  EXPECT_EQ(place->on_grid, 1.0);
  EXPECT_EQ(place->errors.size(), 99U);
  const auto& t = truth.left_from_board.translation;
  EXPECT_NEAR(cv::norm(place->T - cv::Vec3d(t.x, t.y, t.z)), 0.0, 1e-2);
}

TEST_F(BoardPlaceOfAScene, LeavesOutDotsInOtherPlaces) {
  sights.at(20).pixel.x += 30.0;
  sights.at(21).pixel.y -= 40.0;
  const auto place = placeBoard(camera(), sights);
  ASSERT_TRUE(place);
  EXPECT_LT(place->rms, 1e-3);
  EXPECT_NEAR(place->errors.at(20), 30.0, 0.01);
  EXPECT_NEAR(place->errors.at(21), 40.0, 0.01);
  EXPECT_NEAR(place->fitting, 97.0 / 99.0, 1e-12);
}

TEST_F(BoardPlaceOfAScene, HasTheBoardBehindTheGlassIfItIsMirrored) {
  for (BoardSight& sight : sights) sight.board.x = 200.0 - sight.board.x;
  const auto place = placeBoard(camera(), sights);
  ASSERT_TRUE(place);
  EXPECT_LT(place->R(2, 2), 0.0);
}

TEST_F(BoardPlaceOfAScene, IsNotToldOfFewDots) {
  sights.resize(7);
  EXPECT_FALSE(placeBoard(camera(), sights));
}

}  // namespace
}  // namespace diagnose
