// The saved pictures of pairs in 16 bits.
#include <PolarLinePrecision.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <opencv2/imgcodecs.hpp>

#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

struct Warp {
  const char* name;
  const char* polar;
};
class RectifiedPicturesSixteenBitPair : public ::testing::TestWithParam<Warp> {};

/// The warp turns the images and so leaves black corners. Only behind it are the pixels stretched to 8 bits, with the
/// black as their least value: half of the greatest value is a middle grey, though it is the least one of the image.
TEST_P(RectifiedPicturesSixteenBitPair, IsWarpedBeforeItIsStretchedSoThatItsBlackMarginCounts) {
  cv::Mat image(102, 128, CV_16UC1, cv::Scalar(20000));
  image.colRange(64, 128).setTo(cv::Scalar(40000));
  ExportedCalibParams calibration;
  for (ExportedCameraCalib* camera : {&calibration.left, &calibration.right}) {
    camera->width = 128;
    camera->height = 102;
    camera->intrinsics = {150, 150, 63.5, 50.5};
    camera->poly_nx = camera->poly_ny = 1;
  }
  // The right camera is turned by 0.4, and its baseline by half of it: each image is turned by 0.2.
  calibration.extrinsics = {0.0, 0.0, 0.4, -60.0 * std::cos(0.2), -60.0 * std::sin(0.2), 0.0};
  const TempFolder folder;
  std::vector<PolarResultRecord> records;
  {
    const ConsoleCapture quiet;
    // Nothing is measured, so each pair ends behind its pictures.
    const std::string polar =
        std::string("savepolarline: 1\ndy_bias_switch: 1\nevalu_model: 2\nspaceRms_switch: 0\n") + GetParam().polar;
    ASSERT_EQ(CalPolarLinePrecisionOutMat(polar.c_str(), "board_type: 2", calibration, {{image}, {image}}, &records,
                                          nullptr, folder.path().c_str()),
              polar_status::kNoResults);
  }
  for (const char* name : {"result_left/0_left.png", "result_right/0_right.png"}) {
    SCOPED_TRACE(name);
    const cv::Mat picture = cv::imread(folder.file(name), cv::IMREAD_GRAYSCALE);
    ASSERT_EQ(picture.size(), cv::Size(128, 102));
    std::array<int, 256> counts{};
    for (const auto grey : cv::Mat_<std::uint8_t>(picture)) ++counts.at(grey);
    EXPECT_GT(counts[0], 100) << "a margin";
    EXPECT_LT(counts[0], 3000);
    EXPECT_GT(counts[127] + counts[128], 3000) << "20000 of 40000";
    EXPECT_GT(counts[255], 3000);
  }
}

INSTANTIATE_TEST_SUITE_P(Models, RectifiedPicturesSixteenBitPair,
                         ::testing::Values(Warp{"Brown", "type: 1"}, Warp{"BrownScaled", "type: 1\nf_scale: 1.05"},
                                           Warp{"Fisheye", "type: 2"}, Warp{"Poly", "type: 3"}),
                         [](const auto& warp) { return warp.param.name; });

}  // namespace
