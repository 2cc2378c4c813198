#include "tools/scene/Lens.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <string>

#include "tools/scene/PresetRigs.h"

namespace {

using scene::Camera;
using scene::LensModel;
using scene::Point2;

Camera pinhole() {
  Camera camera;
  camera.width = 640;
  camera.height = 480;
  camera.fx = 600.0;
  camera.fy = 610.0;
  camera.cx = 320.0;
  camera.cy = 240.0;
  return camera;
}

TEST(Lens, PinholePixelByHand) {
  const auto pixel = scene::project(pinhole(), {100.0, -50.0, 500.0});
  ASSERT_TRUE(pixel);
  EXPECT_DOUBLE_EQ(pixel->x, 440.0);
  EXPECT_DOUBLE_EQ(pixel->y, 179.0);
}

TEST(Lens, NothingBehindTheCameraIsSeen) {
  EXPECT_FALSE(scene::project(pinhole(), {1.0, 1.0, 0.0}));
  EXPECT_FALSE(scene::project(pinhole(), {1.0, 1.0, -5.0}));
}

TEST(Lens, BrownPointByHand) {
  Camera camera = pinhole();
  camera.lens = {0.1, 0.01, 0.001, 0.2, 0.02, 0.002, 0.01, 0.02};
  // x = 0.5, y = 1: r2 = 1.25, r4 = 1.5625, r6 = 1.953125.
  const double factor = (1 + 0.125 + 0.015625 + 0.001953125) / (1 + 0.25 + 0.03125 + 0.00390625);
  const Point2 raw = scene::distort(camera, {0.5, 1.0}).point;
  EXPECT_NEAR(raw.x, factor * 0.5 + 2 * 0.01 * 0.5 + 0.02 * (1.25 + 0.5), 1e-15);
  EXPECT_NEAR(raw.y, factor * 1.0 + 2 * 0.02 * 0.5 + 0.01 * (1.25 + 2.0), 1e-15);
}

TEST(Lens, FisheyeAtFortyFiveDegrees) {
  Camera camera = pinhole();
  camera.model = LensModel::kFisheye;
  camera.lens = {0.1, 0.0, 0.0, 0.01};
  const double theta = 0.78539816339744831;  // a quarter of pi, as x / z = 1
  const double theta8 = std::pow(theta, 8);
  const double radius = theta * (1 + 0.1 * 0.61685027506808491 + 0.01 * theta8);
  const Point2 raw = scene::distort(camera, {0.6, 0.8}).point;
  EXPECT_NEAR(raw.x, 0.6 * radius, 1e-13);
  EXPECT_NEAR(raw.y, 0.8 * radius, 1e-13);
}

TEST(Lens, FisheyeAxisStays) {
  Camera camera = pinhole();
  camera.model = LensModel::kFisheye;
  camera.lens = {0.1, 0.2, 0.3, 0.4};
  const Point2 raw = scene::distort(camera, {0.0, 0.0}).point;
  EXPECT_EQ(raw.x, 0.0);
  EXPECT_EQ(raw.y, 0.0);
}

struct NamedCamera {
  std::string name;
  Camera camera;
};

void PrintTo(const NamedCamera& named, std::ostream* stream) { *stream << named.name; }

class LensOfEveryKind : public testing::TestWithParam<NamedCamera> {};

TEST_P(LensOfEveryKind, UndistortIsTheInverseOverTheWholeImage) {
  const Camera& camera = GetParam().camera;
  for (int v = 0; v <= camera.height; v += 16) {
    for (int u = 0; u <= camera.width; u += 16) {
      const auto ideal = scene::undistort(camera, scene::rawFromPixel(camera, {1.0 * u, 1.0 * v}));
      ASSERT_TRUE(ideal) << u << ' ' << v;
      const auto again = scene::undistort(camera, scene::distort(camera, *ideal).point);
      ASSERT_TRUE(again) << u << ' ' << v;
      EXPECT_NEAR(again->x, ideal->x, 1e-10) << u << ' ' << v;
      EXPECT_NEAR(again->y, ideal->y, 1e-10) << u << ' ' << v;
      const Point2 pixel = scene::pixelFromRaw(camera, scene::distort(camera, *ideal).point);
      EXPECT_NEAR(pixel.x, u, 1e-8);
      EXPECT_NEAR(pixel.y, v, 1e-8);
    }
  }
}

TEST_P(LensOfEveryKind, DerivativeIsTheDifferenceQuotient) {
  const Camera& camera = GetParam().camera;
  const double h = 1e-6;
  for (const Point2 at : {Point2{0.11, -0.21}, Point2{-0.33, 0.05}, Point2{0.41, 0.3}}) {
    const scene::Matrix2 j = scene::distort(camera, at).by_ideal;
    const Point2 by_x =
        (0.5 / h) * (scene::distort(camera, {at.x + h, at.y}).point - scene::distort(camera, {at.x - h, at.y}).point);
    const Point2 by_y =
        (0.5 / h) * (scene::distort(camera, {at.x, at.y + h}).point - scene::distort(camera, {at.x, at.y - h}).point);
    EXPECT_NEAR(j.xx, by_x.x, 1e-8);
    EXPECT_NEAR(j.yx, by_x.y, 1e-8);
    EXPECT_NEAR(j.xy, by_y.x, 1e-8);
    EXPECT_NEAR(j.yy, by_y.y, 1e-8);
  }
}

INSTANTIATE_TEST_SUITE_P(Models, LensOfEveryKind,
                         testing::Values(NamedCamera{"Brown", scene::brownRig({640, 512, 60}).left},
                                         NamedCamera{"Fisheye", scene::fisheyeRig({640, 400, 60}).right},
                                         NamedCamera{"Poly", scene::polyRig({640, 400, 60}).left}),
                         [](const auto& tested) { return tested.param.name; });

TEST(Lens, OutsideOfTheFieldThereIsNoRay) {
  Camera camera = pinhole();
  camera.lens = {-0.5, 0, 0, 0, 0, 0, 0, 0};  // r (1 - r2 / 2) never exceeds 0.5443
  EXPECT_FALSE(scene::undistort(camera, {0.6, 0.0}));
  EXPECT_TRUE(scene::undistort(camera, {0.5, 0.0}));
}

}  // namespace
