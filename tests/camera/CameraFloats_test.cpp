#include "camera/CameraFloats.h"

#include <gtest/gtest.h>

namespace {

struct ModelCase {
  LensModel model;
  CameraFloats used;
};
class CameraFloatsOf : public testing::TestWithParam<ModelCase> {};

TEST_P(CameraFloatsOf, HasWhatTheModelUsesAndZeros) {
  CameraCalib calib;
  calib.intrinsics = {100.1, 101, 20, 15, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.7, 0.8};
  EXPECT_EQ(cameraFloatsOf(calib, GetParam().model), GetParam().used);
}

INSTANTIATE_TEST_SUITE_P(
    Models, CameraFloatsOf,
    testing::Values(
        ModelCase{LensModel::kBrownFive, {100.1F, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0, 0, 0.7F, 0.8F}},
        ModelCase{LensModel::kBrownEight, {100.1F, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F}},
        ModelCase{LensModel::kFisheye, {100.1F, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0, 0, 0, 0}},
        ModelCase{LensModel::kPoly, {100.1F, 101, 20, 15, 0.1F, 0.2F, 0.3F, 0.4F, 0.5F, 0.6F, 0.7F, 0.8F}}));

}  // namespace
