#include "diagnose/warnings/CommonMisfit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

/// Two pairs of a tilted board before cameras whose middles lie within a percent of the pictures', and a calibration
/// that a test spoils.
struct CommonMisfitOfAnotherCalibration : ::testing::Test {
  WatchedScene scene{scene::brownRig({640, 512, 60.0})};

  void SetUp() override {
    scene.wish = {20.0, -25.0, 8.0, 0.92};
    scene.fills = {0.92, 0.75};
    scene.tellFacts();
  }

  void change(const std::function<void(CameraCalib& camera, const cv::Size2d& last)>& one) {
    one(scene.facts.calib->left, {639.0, 511.0});
    one(scene.facts.calib->right, {639.0, 511.0});
  }
};

TEST_F(CommonMisfitOfAnotherCalibration, OfACropIsTold) {
  change([](CameraCalib& camera, const cv::Size2d&) { camera.intrinsics[3] += 51.0; });
  expectOnly(scene, "calibration_mismatch", "about 0 columns and 51 rows apart, in both pictures of all 2 pairs");
}

TEST_F(CommonMisfitOfAnotherCalibration, OfTheRightCameraAloneIsToldOfThat) {
  scene.facts.calib->right.intrinsics[2] += 40.0;
  expectOnly(scene, "calibration_mismatch", "about 40 columns and 0 rows apart, in the right pictures");
}

TEST_F(CommonMisfitOfAnotherCalibration, OfMirroredPicturesIsTold) {
  change([](CameraCalib& camera, const cv::Size2d& last) {
    camera.intrinsics[2] = last.width - camera.intrinsics[2];
    camera.intrinsics[11] = -camera.intrinsics[11];
  });
  expectOnly(scene, "calibration_mismatch", "mirrored left to right");
}

TEST_F(CommonMisfitOfAnotherCalibration, WhoseCyCountsFromBelowIsTold) {
  change(
      [](CameraCalib& camera, const cv::Size2d& last) { camera.intrinsics[3] = last.height - camera.intrinsics[3]; });
  expectOnly(scene, "calibration_mismatch", "as if its Cy were counted from the lower edge");
}

TEST_F(CommonMisfitOfAnotherCalibration, OfATenthLargerPicturesIsTold) {
  change([](CameraCalib& camera, const cv::Size2d&) {
    for (const std::size_t k : {0U, 1U}) camera.intrinsics.at(k) *= 1.1;
    for (const std::size_t k : {2U, 3U}) camera.intrinsics.at(k) = 1.1 * (camera.intrinsics.at(k) + 0.5) - 0.5;
  });
  expectOnly(scene, "calibration_mismatch", "of pictures 1.1 times as large");
}

// A camera whose lens is a little other than told has causes, and is of no other pictures.
TEST_F(CommonMisfitOfAnotherCalibration, ThatIsALittleOffIsNot) {
  for (const std::size_t k : {0U, 1U}) scene.facts.calib->right.intrinsics.at(k) *= 1.002;
  scene.facts.calib->right.intrinsics[3] += 3.0;
  scene.facts.calib->right.intrinsics[4] += 0.01;
  EXPECT_THAT(scene.codes(), ::testing::IsEmpty());
}

// A principal point that lies as far on the other side of the middle in one camera may do so by chance.
TEST_F(CommonMisfitOfAnotherCalibration, OfOneMirroredCameraIsNotTold) {
  auto& numbers = scene.facts.calib->right.intrinsics;
  numbers[2] = 639.0 - numbers[2];
  EXPECT_THAT(scene.codes(), ::testing::IsEmpty());
}

// What explains a crop of one pair only is spoilt pictures of that.
TEST_F(CommonMisfitOfAnotherCalibration, IsNotToldOfOnePairOfSome) {
  scene.spoilSeen = [](PairObservation& seen, std::size_t pair) {
    for (SharedDot& dot : seen.raw) dot.left.y += pair == 0 ? 30.0F : 0.0F;
  };
  EXPECT_THAT(scene.codes(), ::testing::Not(::testing::Contains("calibration_mismatch")));
}

// The lenses differ much less than a picture turned by half a turn, and yet are told as exchanged.
TEST_F(CommonMisfitOfAnotherCalibration, WithTheLensesExchangedIsToldAsThat) {
  std::swap(scene.facts.calib->left, scene.facts.calib->right);
  expectOnly(scene, "lenses_exchanged", "through the lens of the other camera by 0.0");
}

TEST_F(CommonMisfitOfAnotherCalibration, OfTurnedPicturesIsNotTakenForExchangedLenses) {
  change([](CameraCalib& camera, const cv::Size2d& last) {
    camera.intrinsics[2] = last.width - camera.intrinsics[2];
    camera.intrinsics[3] = last.height - camera.intrinsics[3];
    for (const std::size_t k : {10U, 11U}) camera.intrinsics.at(k) = -camera.intrinsics.at(k);
  });
  expectOnly(scene, "calibration_mismatch", "turned by half a turn");
}

}  // namespace
}  // namespace diagnose
