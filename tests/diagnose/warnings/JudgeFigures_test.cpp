#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

using ::testing::IsEmpty;

/// Row differences that jump from dot to dot.
void makeNoisy(PairObservation& seen, std::size_t /*pair*/) {
  for (SharedDot& dot : seen.rectified) dot.left.y += dot.id % 2 == 0 ? 0.3F : -0.3F;
}

TEST(JudgeFiguresOfNoise, TellsFiguresThatAreNothingElse) {
  WatchedScene scene;
  scene.spoilSeen = makeNoisy;
  scene.addFigures = [](std::map<std::string, double>& figures, std::size_t) { figures["dy_means"] = 0.3; };
  expectOnly(scene, "noise_floor", "dy_means is 0.3 pixels");
}

TEST(JudgeFiguresOfNoise, SaysNothingOfFiguresWellAboveIt) {
  WatchedScene scene;
  scene.spoilSeen = makeNoisy;
  scene.addFigures = [](std::map<std::string, double>& figures, std::size_t) { figures["dy_means"] = 2.0; };
  EXPECT_THAT(scene.codes(), IsEmpty());
}

TEST(JudgeFiguresOfNoise, TellsALimitBelowIt) {
  WatchedScene scene;
  scene.spoilSeen = makeNoisy;
  scene.addFigures = [](std::map<std::string, double>& figures, std::size_t) { figures["dy_means"] = 2.0; };
  scene.limits.most_row = 0.1;
  expectOnly(scene, "noise_floor", "A limit wants dy_means up to 0.1");
}

/// Dots of fisheyes as a Brown lens would have them triangulated: somewhere else.
WatchedScene fisheyeElsewhere() {
  WatchedScene scene(scene::fisheyeRig({320, 200, 60.0}));
  scene.spoilSeen = [](PairObservation& seen, std::size_t) { seen.positions.assign(seen.raw.size(), {0, 0, 100}); };
  return scene;
}

TEST(JudgeFiguresOfFisheyes, TellsALimitOnAFigureThatTakesThemForBrown) {
  WatchedScene scene = fisheyeElsewhere();
  scene.limits.figures = {"dy_means", "dis_rms"};
  expectOnly(scene, "fisheye_raw_pair", "A limit judges dis_rms");
}

TEST(JudgeFiguresOfFisheyes, SaysNothingWhereNoLimitJudgesSuchAFigure) {
  WatchedScene scene = fisheyeElsewhere();
  scene.limits.figures = {"dy_means", "pol_dis"};
  EXPECT_THAT(scene.codes(), IsEmpty());
}

}  // namespace
}  // namespace diagnose
