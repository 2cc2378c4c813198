#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "../WatchedScene.h"
#include "diagnose/warnings/Judges.h"

namespace diagnose {
namespace {

TEST(JudgeGeometryOfSides, TellsExchangedPictures) {
  WatchedScene scene;
  scene.is_exchanged = true;
  expectOnly(scene, "sides_exchanged", "in pair 0");
}

TEST(JudgeGeometryOfSides, TellsATranslationInOtherUnits) {
  WatchedScene scene;
  scene.tellFacts();
  for (std::size_t k = 3; k < 6; ++k) scene.facts.calib->extrinsics.at(k) *= 0.001;
  expectOnly(scene, "baseline_unit", "times as far");
}

// The right picture of pair 1 is that of pair 0, when the board stood nearer.
TEST(JudgeGeometryOfSides, TellsThePairWhosePicturesDoNotBelongTogether) {
  WatchedScene scene;
  scene.fills = {0.97, 0.7};
  std::vector<SharedDot> first;
  scene.spoilSeen = [&first](PairObservation& seen, std::size_t pair) {
    if (pair == 0) first = seen.raw;
    for (std::size_t k = 0; k < seen.raw.size(); ++k) seen.raw[k].right = first.at(k).right;
  };
  const std::vector<polarline::Warning> warnings = scene.warnings();
  const auto isOf = [](const char* code) {
    return [code](const polarline::Warning& each) { return each.code == code; };
  };
  const auto found = std::ranges::find_if(warnings, isOf("pair_stands_out"));
  ASSERT_NE(found, warnings.end());
  EXPECT_EQ(found->text, "The two pictures do not show the board in one place, in pair 1");
  EXPECT_TRUE(std::ranges::none_of(warnings, isOf("baseline_unit")));
  EXPECT_TRUE(std::ranges::none_of(warnings, isOf("sides_exchanged")));
}

TEST(JudgeGeometryOfLenses, TellsThoseThatAreExchanged) {
  WatchedScene scene;
  scene.fills = {0.97, 0.8};
  scene.tellFacts();
  std::swap(scene.facts.calib->left, scene.facts.calib->right);
  expectOnly(scene, "lenses_exchanged", "through the lens of the other camera by 0.0");
}

TEST(JudgeGeometryOfLenses, SaysNothingOfLensesThatAreAlike) {
  scene::StereoRig rig = scene::brownRig({320, 256, 60.0});
  rig.right = rig.left;
  WatchedScene scene(rig);
  EXPECT_THAT(scene.codes(), ::testing::IsEmpty());
}

TEST(JudgeGeometryOfLenses, SaysNothingWhereOnePictureIsOfItsOwnLens) {
  const auto sideOf = [](double own, double other) {
    SideLook side;
    side.size = {320, 256};
    side.place.emplace();
    side.place->R = cv::Matx33d::eye();
    side.place->on_grid = side.place->fitting = 1.0;
    side.place->rms = own;
    side.other_lens = other;
    return side;
  };
  SetFacts facts;
  facts.board.emplace_back();
  const CalibratedPair cameras(StereoCalibParams(), LensModel::kBrownEight);
  Looks looks(2);
  for (PairLook& look : looks) look.sides = {sideOf(0.10, 0.06), sideOf(0.10, 0.06)};
  EXPECT_EQ(judgeGeometry(facts, cameras, looks).size(), 1U);
  looks[1].sides[1] = sideOf(0.10, 0.08);
  EXPECT_TRUE(judgeGeometry(facts, cameras, looks).empty());
}

TEST(JudgeGeometryOfScale, TellsHowMuchLargerTheBoardIs) {
  WatchedScene scene;
  scene.scene.board.step = scene.scene.board.step_y = 20.4;
  scene.tellFacts();
  for (cv::Point3d& place : scene.facts.board) place *= 20.0 / 20.4;
  const polarline::Warning one = onlyOne(scene);
  EXPECT_EQ(one.code, "scale_wrong");
  EXPECT_THAT(one.text, ::testing::StartsWith("Distances come out 2.0"));
  EXPECT_THAT(one.text, ::testing::Not(::testing::ContainsRegex("standard error 0(.00)?[)]"))) << "small, but not none";
}

TEST(JudgeGeometryOfScale, TellsHowMuchTooShortTheBaselineIs) {
  WatchedScene scene;
  scene.tellFacts();
  for (std::size_t k = 3; k < 6; ++k) scene.facts.calib->extrinsics.at(k) *= 0.97;
  expectOnly(scene, "scale_wrong", "baseline told is that much too short");
}

TEST(JudgeGeometryOfBoards, TellsAWrongNumbering) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) {
    for (SharedDot& dot : seen.raw) dot.id = dot.id < 33 ? dot.id + 11 : dot.id - 33;
  };
  expectOnly(scene, "board_mismatch", "in both pictures of pair 0");
}

TEST(JudgeGeometryOfBoards, TellsANumberingFromBehind) {
  WatchedScene scene;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) {
    for (SharedDot& dot : seen.raw) dot.id = dot.id / 11 * 11 + 10 - dot.id % 11;
  };
  expectOnly(scene, "board_mismatch", "from behind");
}

// The pose of such a picture puts the cameras far apart, which says nothing of the calibration's unit.
TEST(JudgeGeometryOfBoards, TellsANumberingFromBehindInOnePictureAlone) {
  WatchedScene scene;
  scene.wish.tilt_y = 30.0;
  scene.spoilSeen = [](PairObservation& seen, std::size_t) {
    const std::vector<SharedDot> all = seen.raw;
    for (std::size_t k = 0; k < all.size(); ++k) seen.raw[k].right = all.at(k / 11 * 11 + 10 - k % 11).right;
  };
  expectOnly(scene, "board_mismatch", "from behind, as in a mirror, in the right picture of pair 0");
}

TEST(JudgeGeometryOfBoards, TellsRowsThatStandFartherApart) {
  WatchedScene scene;
  scene.tellFacts();
  for (cv::Point3d& place : scene.facts.board) place.y *= 0.8;
  expectOnly(scene, "board_mismatch", "rows stood 1.25");
}

/// A calibration that is not of the scene's pictures.
struct OtherCalibration {
  const char* name;
  void (*change)(scene::Camera& camera);
  const char* words;
};

class JudgeGeometryOfCalibrations : public ::testing::TestWithParam<OtherCalibration> {};

TEST_P(JudgeGeometryOfCalibrations, TellsWhatItIsOf) {
  scene::StereoRig rig = scene::brownRig({640, 512, 60.0});
  rig.left.cx += 70.0;
  rig.right.cx += 60.0;
  rig.left.cy += 50.0;
  rig.right.cy += 45.0;
  WatchedScene scene(rig);
  scene.wish = {20.0, -25.0, 8.0, 0.92};
  for (scene::Camera* camera : {&scene.scene.given.left, &scene.scene.given.right}) GetParam().change(*camera);
  scene.tellFacts();
  scene.scene.given = scene.scene.rig;
  expectOnly(scene, "calibration_mismatch", GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(All, JudgeGeometryOfCalibrations,
                         ::testing::Values(OtherCalibration{"Larger",
                                                            [](scene::Camera& camera) {
                                                              camera.fx *= 2.0;
                                                              camera.fy *= 2.0;
                                                              camera.cx = 2.0 * camera.cx + 0.5;
                                                              camera.cy = 2.0 * camera.cy + 0.5;
                                                            },
                                                            "2 times as large"},
                                           OtherCalibration{"Mirrored",
                                                            [](scene::Camera& camera) {
                                                              camera.cx = camera.width - 1 - camera.cx;
                                                              camera.lens[7] = -camera.lens[7];
                                                            },
                                                            "mirrored left to right"},
                                           OtherCalibration{"TurnedByHalf",
                                                            [](scene::Camera& camera) {
                                                              camera.cx = camera.width - 1 - camera.cx;
                                                              camera.cy = camera.height - 1 - camera.cy;
                                                              camera.lens[6] = -camera.lens[6];
                                                              camera.lens[7] = -camera.lens[7];
                                                            },
                                                            "turned by half a turn"},
                                           OtherCalibration{"Cropped",
                                                            [](scene::Camera& camera) {
                                                              camera.cx -= 64.0;
                                                              camera.cy += 48.0;
                                                            },
                                                            "of a part of the pictures"}),
                         [](const auto& each) { return std::string(each.param.name); });

}  // namespace
}  // namespace diagnose
