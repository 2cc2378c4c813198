#include "diagnose/warnings/Watch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"
#include "tools/scene/Misalignment.h"

namespace diagnose {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;

TEST(WatchOfGoodSets, SaysNothing) {
  WatchedScene scene;
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(WatchOfGoodSets, SaysNothingOfManyPairsAtSeveralDistances) {
  WatchedScene scene;
  scene.fills = {0.92, 0.85, 0.78, 0.72, 0.9, 0.8, 0.75};
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(WatchOfGoodSets, SaysNothingOfFisheyes) {
  WatchedScene scene(scene::fisheyeRig({320, 200, 60.0}));
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(WatchOfGoodSets, SaysNothingOfPicturesWithoutDots) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) { seen = {}; };
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(WatchOfGoodSets, SaysNothingOfATurnedCamera) {
  // Toe-in makes distances wrong, too, but it is no wrong length.
  WatchedScene scene;
  scene.scene.rig = scene::misaligned(scene.scene.given, {.rotation_y = 0.3});
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(WatchOfPairs, TellsWhatHoldsForAllOnce) {
  WatchedScene scene;
  scene.fills = {0.92, 0.8, 0.72};
  scene.scene.optics.paper = 290.0;
  const polarline::Warning one = onlyOne(scene);
  EXPECT_EQ(one.pair, -1);
  EXPECT_THAT(one.text, HasSubstr("in both pictures of all 3 pairs"));
}

// The calibration is of pictures with 30 more rows at their top. Of 13 pairs every fourth is kept for it.
TEST(WatchOfPairs, LooksAtSomeOfManyForWhatExplainsAMisfit) {
  WatchedScene scene(scene::brownRig({640, 512, 60.0}));
  scene.fills = {0.92, 0.85, 0.78, 0.72, 0.9, 0.8, 0.75, 0.91, 0.86, 0.79, 0.73, 0.88, 0.81};
  scene.wish.tilt_x = 20.0;
  scene.tellFacts();
  scene.facts.calib->left.intrinsics.at(3) += 30.0;
  scene.facts.calib->right.intrinsics.at(3) += 30.0;
  expectOnly(scene, "calibration_mismatch", "and 30 rows apart, in both pictures of pairs 0, 4, 8 and 12");
}

// The right picture of pair 4 is that of pair 0, which spoils its figures, too.
TEST(WatchOfPairs, TellsOnceThatOneStandsOut) {
  WatchedScene scene;
  scene.fills = {0.92, 0.85, 0.78, 0.72, 0.6, 0.8, 0.75};
  std::vector<SharedDot> first;
  scene.spoilSeen = [&first](PairObservation& seen, std::size_t pair) {
    if (pair == 0) first = seen.raw;
    for (std::size_t k = 0; pair == 4 && k < seen.raw.size(); ++k) seen.raw[k].right = first.at(k).right;
  };
  scene.addFigures = [](std::map<std::string, double>& figures, std::size_t pair) {
    figures["dy_means"] = pair == 4 ? 0.4 : 0.03;
  };
  const std::vector<polarline::Warning> warnings = scene.warnings();
  EXPECT_EQ(std::ranges::count(warnings, "pair_stands_out", &polarline::Warning::code), 1);
}

}  // namespace
}  // namespace diagnose
