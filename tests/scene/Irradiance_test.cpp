#include "tools/scene/Irradiance.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <ostream>

#include "OneDot.h"
#include "tools/scene/BoardMarks.h"
#include "tools/scene/PoseFit.h"
#include "tools/scene/PresetRigs.h"
#include "tools/scene/Truth.h"

namespace {

using scene::Camera;
using scene::Pose;

TEST(Irradiance, FrontalDiskHasItsArea) {
  // 6 mm at 100 mm with a focal length of 200 pixels: 12 pixels.
  const Pose pose{{}, {0.15, -0.2, 100.0}};
  scene::Optics optics = darkness();
  optics.supersampling = 40;
  const cv::Mat image = scene::renderIrradiance(smallPinhole(), oneDotBoard(), pose, optics);
  const InkMoments moments = inkMoments(image, {0, 0, 100, 80});
  EXPECT_NEAR(moments.area, std::numbers::pi * 144.0, 0.1);
  EXPECT_NEAR(moments.centre.x, 50.3, 0.001);
  EXPECT_NEAR(moments.centre.y, 39.6, 0.001);
}

TEST(Irradiance, FullPixelsAreInkOrPaper) {
  const cv::Mat image = scene::renderIrradiance(smallPinhole(), oneDotBoard(), {{}, {0, 0, 100}}, darkness());
  EXPECT_EQ(image.at<float>(40, 50), 0.0F);
  EXPECT_EQ(image.at<float>(40, 61), 0.0F);  // 10.5 to 11.5 pixels from the centre
  EXPECT_EQ(image.at<float>(40, 63), 1.0F);
  EXPECT_GT(image.at<float>(40, 62), 0.3F);  // the edge at 12 pixels goes through this pixel
  EXPECT_LT(image.at<float>(40, 62), 0.7F);
}

TEST(Irradiance, BoardBehindTheCameraIsNotSeen) {
  scene::Optics optics = darkness();
  optics.surround = 0.25;
  const cv::Mat image = scene::renderIrradiance(smallPinhole(), oneDotBoard(), {{}, {0, 0, -100}}, optics);
  double low = 0, high = 0;
  cv::minMaxLoc(image, &low, &high);
  EXPECT_EQ(low, 0.25);
  EXPECT_EQ(high, 0.25);
}

TEST(Irradiance, PixelsWiderThanTheGridStillAverage) {
  // At 100 m a pixel covers 500 mm, 25 steps: every pixel of the board shows the mean grey, 1 less the ink's share.
  scene::Board board;
  board.kind = scene::BoardKind::kBigDots;
  board.rows = board.cols = 201;
  board.inner_width = board.inner_height = 5;
  board.big_dot.outer = board.dot_radius;
  scene::Optics optics = darkness();
  optics.supersampling = 200;
  Camera camera = smallPinhole();
  camera.width = camera.height = 9;
  camera.cx = camera.cy = 4.0;
  const cv::Mat image = scene::renderIrradiance(camera, board, {{}, {-2000, -2000, 100000}}, optics);
  EXPECT_NEAR(image.at<float>(4, 4), 1.0 - std::numbers::pi * 0.09, 0.01);
}

struct NamedRig {
  const char* name;
  scene::StereoRig rig;
};

void PrintTo(const NamedRig& named, std::ostream* stream) { *stream << named.name; }

class IrradianceEveryRig : public testing::TestWithParam<NamedRig> {};

/// The ink around a dot: area and centroid over the pixels within 1.2 times its ellipse and a pixel more.
InkMoments inkAround(const cv::Mat& irradiance, const scene::ImagedEllipse& e) {
  InkMoments moments;
  const double reach = 1.2 * e.semi_a + 1.0;
  for (int v = static_cast<int>(e.centre.y - reach); v <= static_cast<int>(e.centre.y + reach) + 1; ++v) {
    for (int u = static_cast<int>(e.centre.x - reach); u <= static_cast<int>(e.centre.x + reach) + 1; ++u) {
      const scene::Point2 d{u - e.centre.x, v - e.centre.y};
      const double along = (d.x * std::cos(e.angle) + d.y * std::sin(e.angle)) / reach;
      const double across = (d.y * std::cos(e.angle) - d.x * std::sin(e.angle)) / (1.2 * e.semi_b + 1.0);
      if (along * along + across * across > 1.0) continue;
      const double ink = 1.0 - irradiance.at<float>(v, u);
      moments.area += ink;
      moments.centre = moments.centre + ink * scene::Point2{1.0 * u, 1.0 * v};
    }
  }
  moments.centre = (1.0 / moments.area) * moments.centre;
  return moments;
}

TEST_P(IrradianceEveryRig, ImagedDotsHaveTheTruthsCentreAndArea) {
  scene::Scene scene;
  scene.rig = scene.given = GetParam().rig;
  scene.board.rows = 15;
  scene.board.cols = 17;
  scene.board.kind = scene::BoardKind::kBigDots;
  scene.board.inner_width = scene.board.inner_height = 5;
  scene.left_from_board.push_back(scene::fitPose(scene.rig, scene.board, {12.0, -14.0, 5.0, 0.95}));
  const scene::PairTruth truth = scene::pairTruth(scene, 0);
  const Pose right_from_board = scene::rightFromBoard(scene.rig, truth.left_from_board);
  const cv::Mat left = scene::renderIrradiance(scene.rig.left, scene.board, truth.left_from_board, darkness());
  const cv::Mat right = scene::renderIrradiance(scene.rig.right, scene.board, right_from_board, darkness());
  for (const scene::DotTruth& dot : truth.dots) {
    for (const auto& [image, ellipse] : {std::pair{&left, &dot.ellipse_left}, std::pair{&right, &dot.ellipse_right}}) {
      const InkMoments moments = inkAround(*image, *ellipse);
      EXPECT_NEAR(moments.centre.x, ellipse->centre.x, 0.01) << dot.id;
      EXPECT_NEAR(moments.centre.y, ellipse->centre.y, 0.01) << dot.id;
      EXPECT_NEAR(moments.area, ellipse->area, 0.004 * ellipse->area) << dot.id;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Models, IrradianceEveryRig,
                         testing::Values(NamedRig{"Brown", scene::brownRig({640, 512, 60})},
                                         NamedRig{"Fisheye", scene::fisheyeRig({640, 512, 60})},
                                         NamedRig{"Poly", scene::polyRig({640, 512, 60})},
                                         NamedRig{"Rectified", scene::rectifiedRig({640, 512, 60})}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
