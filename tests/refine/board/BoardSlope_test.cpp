#include "refine/board/BoardSlope.h"

#include <gtest/gtest.h>

#include "tools/accuracy/Sight.h"
#include "tools/scene/PresetRigs.h"

namespace {

const scene::Camera kCamera = scene::brownRig({640, 512, 60.0}).left;

TEST(BoardSlope, IsHowPixelsMoveWithTheBoardsPoint) {
  const CalibratedCamera camera = accuracy::calibratedCamera(kCamera);
  const CameraPose front{cv::Matx33d::eye(), {0.0, 0.0, 768.0}};
  const auto slope = refine::slopeOnBoard(camera, front, {0.0, 0.0, 0.0}, 0.01);
  ASSERT_TRUE(slope);
  // On the axis the lens takes nothing off: fx / z and fy / z.
  EXPECT_NEAR((*slope)(0, 0), kCamera.fx / 768.0, 1e-6);
  EXPECT_NEAR((*slope)(1, 1), kCamera.fy / 768.0, 1e-6);
  EXPECT_NEAR((*slope)(0, 1), 0.0, 1e-6);
}

}  // namespace
