#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

TEST(JudgeDotsOfBoards, TellsDotsThatTheBoardDoesNotHave) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) { seen.raw.back().id = 99; };
  expectOnly(scene, "strange_ids", "99 dots does not have, 99 is one");
}

TEST(JudgeDotsOfBoards, TellsAGhost) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) { seen.raw.at(40).left.x += 4.0F; };
  expectOnly(scene, "ghost_dots", "Dot 40 stands 4.0");
}

TEST(JudgeDotsOfBoards, TellsThatMostDotsAreMissing) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) { seen.found = {48, 50}; };
  expectOnly(scene, "too_few_dots", "48 of the board's 99 dots were numbered, in the left picture of pair 0");
}

}  // namespace
}  // namespace diagnose
