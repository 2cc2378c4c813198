#include "tools/scene/Misalignment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Presets.h"
#include "tools/scene/Truth.h"

namespace {

using scene::Misalignment;
using scene::Point2;
using scene::Point3;
using scene::StereoRig;

constexpr double kDegree = std::numbers::pi / 180.0;

/// Where the right camera of a pair that needs no rectification sees a point of the left camera's frame. There the
/// rectified frames are the cameras' own.
Point2 seenRight(const Misalignment& misalignment, const Point3& point_left) {
  const StereoRig rig = scene::misaligned(scene::rectifiedRig({1000, 800, 50.0}), misalignment);
  return *scene::project(rig.right, scene::rightFromLeft(rig, point_left));
}

struct Case {
  const char* name;
  Misalignment misalignment;
  Point2 moved;  ///< By how much the point moves in the right picture, pixels.
};

// The rig's focal length is 900. The point (50, 200, 1000) is (0, 200, 1000) for the right camera 50 to the right: on
// the picture's middle column, 0.2 below the axis.
constexpr double kFocal = 900.0;
const Point3 kPoint{50.0, 200.0, 1000.0};

class MisalignmentMovesThePointOfTheRightPicture : public testing::TestWithParam<Case> {};

TEST_P(MisalignmentMovesThePointOfTheRightPicture, AsItsSignSays) {
  const Point2 before = seenRight({}, kPoint);
  const Point2 after = seenRight(GetParam().misalignment, kPoint);
  EXPECT_NEAR(after.x - before.x, GetParam().moved.x, 1e-9);
  EXPECT_NEAR(after.y - before.y, GetParam().moved.y, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    EachOfTheEight, MisalignmentMovesThePointOfTheRightPicture,
    testing::Values(  // tan of the angle to the axis: up by the turn.
        Case{"rotation_x", {.rotation_x = 0.1}, {0.0, kFocal*(std::tan(std::atan(0.2) - 0.1 * kDegree) - 0.2)}},
        // (0, 0.2, 1) turned about y: x = sin, z = cos.
        Case{"rotation_y",
             {.rotation_y = 0.1},
             {kFocal * std::tan(0.1 * kDegree), kFocal * 0.2 * (1.0 / std::cos(0.1 * kDegree) - 1.0)}},
        // A point below the axis goes clockwise: to the left.
        Case{"rotation_z",
             {.rotation_z = 0.1},
             {-kFocal * 0.2 * std::sin(0.1 * kDegree), kFocal * 0.2 * (std::cos(0.1 * kDegree) - 1.0)}},
        Case{"focal_ratio", {.focal_ratio = 0.001}, {0.0, 0.001 * kFocal * 0.2}},
        Case{"row_offset", {.row_offset = 0.75}, {0.0, 0.75}},
        Case{"baseline_y", {.baseline_y = 2.0}, {0.0, kFocal * 0.002}},
        Case{"baseline_z", {.baseline_z = 3.0}, {0.0, kFocal * 200.0 * (1.0 / 1003.0 - 1.0 / 1000.0)}},
        Case{"k1", {.k1 = 0.01}, {0.0, kFocal * 0.2 * 0.01 * 0.04}}),
    [](const auto& each) { return each.param.name; });

TEST(Misalignment, NothingChangesNothing) {
  for (const StereoRig& rig : {scene::brownRig({640, 512, 60.0}), scene::fisheyeRig({640, 400, 50.0})}) {
    const StereoRig same = scene::misaligned(rig, {});
    EXPECT_EQ(same.right, rig.right);
    EXPECT_EQ(same.left, rig.left);
    EXPECT_EQ(same.right_from_left_angles.ry, rig.right_from_left_angles.ry);
    EXPECT_EQ(same.right_from_left_translation.y, rig.right_from_left_translation.y);
  }
}

TEST(Misalignment, TheLeftCameraStaysAsItIs) {
  const StereoRig rig = scene::brownRig({640, 512, 60.0});
  const StereoRig off = scene::misaligned(rig, {1.0, 1.0, 1.0, 0.01, 3.0, 1.0, 1.0, 0.1});
  EXPECT_EQ(off.left, rig.left);
}

TEST(Misalignment, TurnLeavesTheRightCameraWhereItStands) {
  const StereoRig rig = scene::brownRig({640, 512, 60.0});
  const StereoRig off = scene::misaligned(rig, {.rotation_x = 0.4, .rotation_y = -0.7, .rotation_z = 0.9});
  const auto centre = [](const StereoRig& r) {
    return scene::transposed(scene::rotationFromAngles(r.right_from_left_angles)) *
           (-1.0 * r.right_from_left_translation);
  };
  EXPECT_NEAR(scene::norm(centre(off) - centre(rig)), 0.0, 1e-12);
}

/// Mean of left row less right row over the board after rectification by the calibration, pixels. The rig's cameras
/// are not parallel, so the rectified frame is no camera's own.
double meanRowDifference(const Misalignment& misalignment) {
  scene::Scene scene = *scene::makePreset("big_1280", {.pairs = 1, .seed = {}, .read_noise = {}});
  scene.rig = scene::misaligned(scene.given, misalignment);
  const scene::PairTruth truth = scene::pairTruth(scene, 0);
  double sum = 0.0;
  for (const scene::DotTruth& dot : truth.dots) sum += dot.row_difference;
  return sum / static_cast<double>(truth.dots.size());
}

TEST(Misalignment, ShowsInTheRectifiedRows) {
  const scene::Scene scene = *scene::makePreset("big_1280", {.pairs = 1, .seed = {}, .read_noise = {}});
  const double focal = scene::pairTruth(scene, 0).rectified_focal;
  double depth = 0.0;
  const auto dots = scene::pairTruth(scene, 0).dots;
  for (const auto& dot : dots) depth += 1.0 / dot.point_left.z / static_cast<double>(dots.size());
  // The mean of 1 + y^2 over a board that fills 0.92 of 1280 x 1024 at 1.2 widths: y reaches 0.3, so a little above 1.
  EXPECT_NEAR(meanRowDifference({.rotation_x = 0.05}), 1.03 * focal * 0.05 * kDegree, 0.03 * focal * 0.05 * kDegree);
  EXPECT_NEAR(meanRowDifference({.row_offset = 0.8}), -0.8, 0.02);
  EXPECT_NEAR(meanRowDifference({.baseline_y = 0.3}), -focal * 0.3 * depth, 0.01 * focal * 0.3 * depth);
}

}  // namespace
