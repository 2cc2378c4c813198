#include "input/CalibrationConversion.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <numeric>

namespace {

std::unique_ptr<StereoCalibParams> distinctCalibration() {
  auto calib = std::make_unique<StereoCalibParams>();
  float next = 0.5F;
  for (CameraCalib* camera : {&calib->left, &calib->right}) {
    camera->height = static_cast<std::uint32_t>(next += 1.0F);
    camera->width = static_cast<std::uint32_t>(next += 1.0F);
    camera->poly_nx = static_cast<std::uint8_t>(next += 1.0F);
    camera->poly_ny = static_cast<std::uint8_t>(next += 1.0F);
    std::iota(camera->intrinsics.begin(), camera->intrinsics.end(), next + 100.1);
    std::iota(camera->poly_x.begin(), camera->poly_x.end(), next + 1000.0F);
    std::iota(camera->poly_y.begin(), camera->poly_y.end(), next + 2000.0F);
  }
  calib->extrinsics = {0.1, 0.2, 0.3, 4.0, 5.0, 6.0};
  return calib;
}

template <typename One, typename Other>
void expectSameCamera(const One& one, const Other& other) {
  EXPECT_EQ(one.height, other.height);
  EXPECT_EQ(one.width, other.width);
  EXPECT_EQ(one.intrinsics, other.intrinsics);
  EXPECT_EQ(one.poly_nx, other.poly_nx);
  EXPECT_EQ(one.poly_ny, other.poly_ny);
  EXPECT_EQ(one.poly_x, other.poly_x);
  EXPECT_EQ(one.poly_y, other.poly_y);
}

TEST(CalibrationConversionExport, PutsEachCameraIntoItsBlockAndLeavesTheBoardPoints) {
  const auto calib = distinctCalibration();
  const auto exported = std::make_unique<ExportedCalibParams>();
  exported->boardPoints = {{1, 2, 3}};
  exportCalibration(*calib, *exported);
  expectSameCamera(exported->left, calib->left);
  expectSameCamera(exported->right, calib->right);
  EXPECT_NE(exported->left.intrinsics, exported->right.intrinsics);
  EXPECT_EQ(exported->extrinsics, calib->extrinsics);
  EXPECT_EQ(exported->boardPoints.size(), 1U);
}

TEST(CalibrationConversionImport, IsTheWayBack) {
  const auto calib = distinctCalibration();
  const auto exported = std::make_unique<ExportedCalibParams>();
  exportCalibration(*calib, *exported);
  const auto imported = std::make_unique<StereoCalibParams>();
  importCalibration(*exported, *imported);
  expectSameCamera(imported->left, calib->left);
  expectSameCamera(imported->right, calib->right);
  EXPECT_EQ(imported->extrinsics, calib->extrinsics);
}

TEST(CalibrationConversionRecordLayout, TheRunsRecordHasTheRightCameraFirstAndTheCallersTheLeft) {
  const StereoCalibParams calib;
  const ExportedCalibParams exported;
  EXPECT_LT(static_cast<const void*>(&calib.right), static_cast<const void*>(&calib.left));
  EXPECT_LT(static_cast<const void*>(&exported.left), static_cast<const void*>(&exported.right));
}

struct SizeCase {
  double size;
  std::uint32_t pixels;
};

class CalibrationConversionImportedSize : public testing::TestWithParam<SizeCase> {};

TEST_P(CalibrationConversionImportedSize, IsTruncated) {
  ExportedCalibParams exported;
  exported.left.height = GetParam().size;
  exported.right.width = GetParam().size;
  StereoCalibParams calib;
  importCalibration(exported, calib);
  EXPECT_EQ(calib.left.height, GetParam().pixels);
  EXPECT_EQ(calib.right.width, GetParam().pixels);
}

INSTANTIATE_TEST_SUITE_P(Sizes, CalibrationConversionImportedSize,
                         testing::Values(SizeCase{1199.999, 1199}, SizeCase{0.0, 0}, SizeCase{-0.9, 0},
                                         SizeCase{-1.5, 0xFFFFFFFFU}, SizeCase{1e300, 0x7FFFFFFFU},
                                         SizeCase{-1e300, 0x80000000U},
                                         SizeCase{std::numeric_limits<double>::quiet_NaN(), 0},
                                         SizeCase{std::numeric_limits<double>::infinity(), 0x7FFFFFFFU}));

}  // namespace
