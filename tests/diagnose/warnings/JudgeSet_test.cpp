#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

using ::testing::IsEmpty;

TEST(JudgeSetOfPlaces, TellsASmallBoard) {
  WatchedScene scene(scene::brownRig({640, 512, 60.0}));
  scene.wish.fill = 0.3;
  expectOnly(scene, "board_small", "% of the picture");
}

TEST(JudgeSetOfPlaces, TellsWhatNoPairCovers) {
  WatchedScene scene(scene::brownRig({640, 512, 60.0}));
  scene.fills = {0.6, 0.55, 0.5};
  expectOnly(scene, "low_coverage", "All 3 pairs together");
}

TEST(JudgeSetOfPlaces, AsksAGlanceForNoCoverage) {
  WatchedScene scene(scene::brownRig({640, 512, 60.0}));
  scene.fills = {0.6, 0.55};
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(JudgeSetOfPlaces, TellsOneDistance) {
  WatchedScene scene;
  scene.fills.assign(6, 0.92);
  expectOnly(scene, "one_distance", "In all 6 pairs");
}

TEST(JudgeSetOfPlaces, AsksForMorePairsBeforeItTellsOneDistance) {
  WatchedScene scene;
  scene.fills.assign(5, 0.92);
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(JudgeSetOfPairs, TellsTheOneThatStandsOut) {
  WatchedScene scene;
  scene.fills = {0.92, 0.85, 0.78, 0.72, 0.9, 0.8, 0.75};
  scene.addFigures = [](std::map<std::string, double>& figures, std::size_t pair) {
    figures["dy_means"] = pair == 4 ? 0.4 : 0.03 + 0.001 * static_cast<double>(pair);
  };
  const polarline::Warning one = onlyOne(scene);
  EXPECT_EQ(one.code, "pair_stands_out");
  EXPECT_EQ(one.pair, 4);
}

}  // namespace
}  // namespace diagnose
