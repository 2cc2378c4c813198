#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>

#include "polarline/detect.h"

namespace {

struct KindCase {
  const char* kind;
  cv::Scalar bgr;
};

class EllipsesPicture : public testing::TestWithParam<KindCase> {};

// An ellipse of 30 x 20 pixels stands there, and its class in the legend, in the colour of the class and in no other
// place.
TEST_P(EllipsesPicture, DrawsAnEllipseAndItsLegendInTheColourOfItsClass) {
  polarline::Detection detection;
  detection.dot_radius = 20.0;
  detection.ellipses.push_back({100.0, 80.0, 30.0, 20.0, 0.0, GetParam().kind, false});
  const cv::Mat picture = polarline::ellipsesPicture(cv::Mat(300, 400, CV_8UC1, cv::Scalar(150)), detection);
  ASSERT_GT(picture.rows, 300);
  cv::Mat hits;
  // Smooth lines leave some of the colour.
  cv::inRange(picture, GetParam().bgr - cv::Scalar::all(60), GetParam().bgr + cv::Scalar::all(60), hits);
  EXPECT_GT(cv::countNonZero(hits(cv::Rect(65, 55, 71, 51))), 30);
  EXPECT_EQ(cv::countNonZero(hits(cv::Rect(80, 70, 41, 21))), 0) << "only the outline";
  EXPECT_EQ(cv::countNonZero(hits(cv::Rect(150, 0, 250, 300))), 0);
  EXPECT_GT(cv::countNonZero(hits.rowRange(300, picture.rows)), 5);
}

INSTANTIATE_TEST_SUITE_P(Kinds, EllipsesPicture,
                         testing::Values(KindCase{"dot", {60, 160, 0}}, KindCase{"ring", {255, 100, 0}},
                                         KindCase{"solid_ring", {200, 0, 200}}, KindCase{"big_dot", {230, 160, 0}},
                                         KindCase{"unknown", {0, 120, 255}}, KindCase{"rejected", {0, 0, 230}}),
                         [](const auto& tested) { return tested.param.kind; });

TEST(EllipsesPictureEmpty, OfAnEmptyImageIsEmpty) { EXPECT_TRUE(polarline::ellipsesPicture({}, {}).empty()); }

}  // namespace
