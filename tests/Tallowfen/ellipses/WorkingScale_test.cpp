#include "Tallowfen/src/ellipses/WorkingScale.h"

#include <gtest/gtest.h>

#include "HandMadeEllipses.h"

namespace {

using kestrune::WorkingScale;
using kestrune::workingScaleOf;

struct ScaleCase {
  int width, working_width, working_height;
  double image_per_working;
  bool resized;
};

class WorkingScaleTable : public testing::TestWithParam<ScaleCase> {};

TEST_P(WorkingScaleTable, FollowsTheWidthAlone) {
  const WorkingScale scale = workingScaleOf({GetParam().width, 101});
  EXPECT_EQ(scale.size, cv::Size(GetParam().working_width, GetParam().working_height));
  EXPECT_EQ(scale.image_per_working, GetParam().image_per_working);
  EXPECT_EQ(scale.resized, GetParam().resized);
}

INSTANTIATE_TEST_SUITE_P(Widths, WorkingScaleTable,
                         testing::Values(ScaleCase{320, 1280, 404, 0.25, true}, ScaleCase{321, 642, 202, 0.5, true},
                                         ScaleCase{640, 1280, 202, 0.5, true}, ScaleCase{641, 641, 101, 1.0, false},
                                         ScaleCase{2047, 2047, 101, 1.0, false}, ScaleCase{2048, 1024, 50, 2.0, true},
                                         ScaleCase{2449, 1224, 50, 2.0, true}),
                         [](const auto& tested) { return "Width" + std::to_string(tested.param.width); });

TEST(WorkingScale, MapsCentresByPixelAreasAndSemiAxesByScale) {
  std::vector<kestrune::Ellipse> ellipses = {handmade::ellipse(10, 21, 6)};
  ellipses[0].semi_b = 4;
  ellipses[0].angle = 0.25;
  ellipses[0].edge_points = {{3, 4}};
  kestrune::mapToImage(workingScaleOf({320, 240}), ellipses);
  EXPECT_EQ(ellipses[0].x, 2.125);
  EXPECT_EQ(ellipses[0].y, 4.875);
  EXPECT_EQ(ellipses[0].semi_a, 1.5);
  EXPECT_EQ(ellipses[0].semi_b, 1.0);
  EXPECT_EQ(ellipses[0].angle, 0.25);
  EXPECT_EQ(ellipses[0].edge_points[0], cv::Point2f(3, 4)) << "edge points stay in working pixels";
}

TEST(WorkingScale, MapsHalvedImagesBack) {
  std::vector<kestrune::Ellipse> ellipses = {handmade::ellipse(10, 0, 6)};
  kestrune::mapToImage(workingScaleOf({2048, 100}), ellipses);
  EXPECT_EQ(ellipses[0].x, 20.5);
  EXPECT_EQ(ellipses[0].y, 0.5);
  EXPECT_EQ(ellipses[0].semi_a, 12.0);
}

TEST(WorkingScale, AnImageThatStaysIsNotMappedToTheLastDigit) {
  const double x = 0.1 + 0x1p-56;
  std::vector<kestrune::Ellipse> ellipses = {handmade::ellipse(x, x, x)};
  kestrune::mapToImage(workingScaleOf({1280, 100}), ellipses);
  EXPECT_EQ(ellipses[0].x, x);
  EXPECT_EQ(ellipses[0].semi_a, x);
}

TEST(WorkingScale, EnlargesBilinearly) {
  const cv::Mat image = (cv::Mat_<std::uint8_t>(1, 2) << 0, 80);
  const cv::Mat working = kestrune::workingImage(image, workingScaleOf(image.size()));
  // Four working pixels to a pixel: centres at -0.375, -0.125, 0.125 ... of the first pixel.
  const cv::Mat row = (cv::Mat_<std::uint8_t>(1, 8) << 0, 0, 10, 30, 50, 70, 80, 80);
  ASSERT_EQ(working.size(), cv::Size(8, 4));
  EXPECT_EQ(cv::norm(working.row(0), row, cv::NORM_INF), 0.0);
  EXPECT_EQ(cv::norm(working.row(3), row, cv::NORM_INF), 0.0);
}

TEST(WorkingScale, AnImageThatStaysSharesItsPixels) {
  const cv::Mat image(10, 700, CV_8UC1, cv::Scalar(0));
  EXPECT_EQ(kestrune::workingImage(image, workingScaleOf(image.size())).data, image.data);
}

}  // namespace
