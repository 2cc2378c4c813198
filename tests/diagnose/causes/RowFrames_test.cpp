#include "diagnose/causes/RowFrames.h"

#include <gtest/gtest.h>

#include "camera/CalibratedPair.h"
#include "tools/causes/SeenScene.h"
#include "tools/scene/IdealRectification.h"

namespace {

/// The renderer's own rectification is the truth.
TEST(RowFrames, AreThoseOfTheIdealRectification) {
  for (const LensModel model : {LensModel::kBrownEight, LensModel::kFisheye}) {
    const scene::StereoRig rig = SeenScene::lensesOf(model);
    const CalibratedPair cameras(SeenScene::calibOf(rig), model);
    const RowFrames frames = rowFrames(cameras.R, cameras.T);
    const scene::IdealRectification ideal = scene::idealRectification(rig);
    for (int k = 0; k < 9; ++k) {
      EXPECT_NEAR(frames.left.val[k], ideal.left.values.at(static_cast<std::size_t>(k)), 1e-12);
      EXPECT_NEAR(frames.right.val[k], ideal.right.values.at(static_cast<std::size_t>(k)), 1e-12);
    }
  }
}

TEST(RowFramesFocal, IsThatOfTheRectifiedPictures) {
  for (const LensModel model : {LensModel::kBrownEight, LensModel::kFisheye}) {
    for (const double f_scale : {1.0, 0.75}) {
      const scene::StereoRig rig = SeenScene::lensesOf(model);
      EXPECT_NEAR(rowFocal(SeenScene::calibOf(rig), model, f_scale), scene::rectifiedFocal(rig, f_scale), 1e-9);
    }
  }
}

TEST(RowFramesAngles, ComeBackFromTheirRotation) {
  const cv::Vec3d angles = anglesOf(rotationOf(0.3, -0.8, 2.1));
  EXPECT_NEAR(angles[0], 0.3, 1e-14);
  EXPECT_NEAR(angles[1], -0.8, 1e-14);
  EXPECT_NEAR(angles[2], 2.1, 1e-14);
}

}  // namespace
