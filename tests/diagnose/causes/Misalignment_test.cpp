#include "diagnose/causes/Misalignment.h"

#include <gtest/gtest.h>

#include <numbers>

#include "camera/CalibratedCamera.h"
#include "tools/causes/SeenScene.h"

namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

/// The same as the renderer's, which shares no code.
TEST(Misalignment, MakesTheCamerasOfTheRenderer) {
  for (const LensModel model : {LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye}) {
    const scene::StereoRig rig = SeenScene::lensesOf(model);
    const scene::Misalignment told{0.2, -0.15, 0.1, 0.002, 3.0, 0.5, -0.7, 0.01};
    const Misalignment same{0.2 * kDegree, -0.15 * kDegree, 0.1 * kDegree, 0.002, 3.0, 0.5, -0.7, 0.01};
    const StereoCalibParams truth = SeenScene::calibOf(scene::misaligned(rig, told));
    const StereoCalibParams found = misaligned(SeenScene::calibOf(rig), model, same);
    for (std::size_t k = 0; k < 6; ++k) EXPECT_NEAR(found.extrinsics.at(k), truth.extrinsics.at(k), 1e-12) << k;
    for (std::size_t k = 0; k < 12; ++k) {
      EXPECT_NEAR(found.right.intrinsics.at(k), truth.right.intrinsics.at(k), 1e-12) << k;
      EXPECT_EQ(found.left.intrinsics.at(k), truth.left.intrinsics.at(k)) << k;
    }
  }
}

TEST(Misalignment, OfNothingLeavesEveryDigit) {
  const StereoCalibParams calib = SeenScene::calibOf(SeenScene::lensesOf(LensModel::kFisheye));
  const StereoCalibParams same = misaligned(calib, LensModel::kFisheye, {});
  EXPECT_EQ(same.extrinsics, calib.extrinsics);
  EXPECT_EQ(same.right.intrinsics, calib.right.intrinsics);
}

/// k1 moves a point outward by k1 r^2 times itself, in every cell of a table.
TEST(MisalignmentPoly, TakesTheChangeOfTheFirstCoefficientIntoItsTables) {
  const StereoCalibParams calib = SeenScene::calibOf(SeenScene(LensModel::kPoly).given());
  Misalignment misalignment{};
  at(misalignment, CauseKind::kK1) = 0.01;
  const StereoCalibParams moved = misaligned(calib, LensModel::kPoly, misalignment);
  const CalibratedCamera before(calib, 1, LensModel::kPoly);
  const CalibratedCamera after(moved, 1, LensModel::kPoly);
  for (const cv::Point2d& ideal : {cv::Point2d(0.3, 0.2), cv::Point2d(-0.4, 0.25), cv::Point2d(0.1, -0.3)}) {
    const cv::Point2d added = after.distorted(ideal) - before.distorted(ideal);
    const double factor = 0.01 * ideal.dot(ideal);
    EXPECT_NEAR(added.x, factor * ideal.x, 1e-7);
    EXPECT_NEAR(added.y, factor * ideal.y, 1e-7);
  }
}

}  // namespace
