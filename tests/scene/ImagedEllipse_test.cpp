#include "tools/scene/ImagedEllipse.h"

#include <gtest/gtest.h>

#include <numbers>

#include "OneDot.h"
#include "tools/scene/Lens.h"

namespace {

using scene::imagedEllipse;
using scene::ImagedEllipse;
using scene::Pose;

TEST(ImagedEllipse, FrontalCircleIsACircle) {
  const ImagedEllipse e = imagedEllipse(smallPinhole(), {{}, {0, 0, 100}}, {5, -3, 0}, 6.0);
  EXPECT_NEAR(e.centre.x, 60.0, 1e-11);
  EXPECT_NEAR(e.centre.y, 34.0, 1e-11);
  EXPECT_NEAR(e.semi_a, 12.0, 1e-6);
  EXPECT_NEAR(e.semi_b, 12.0, 1e-6);
  EXPECT_NEAR(e.area, std::numbers::pi * 144.0, 1e-9);
}

TEST(ImagedEllipse, TiltedCircleByHand) {
  // Turned by 60 degrees about x, the circle's ends along y stand at depths 100 -+ 5 sqrt(3), heights -+ 5.
  const Pose pose{scene::rotationFromAngles({std::numbers::pi / 3.0, 0, 0}), {0, 0, 100}};
  const double rise = 5.0 * std::sqrt(3.0);
  const double lower = 200.0 * 5.0 / (100.0 + rise);
  const double upper = -200.0 * 5.0 / (100.0 - rise);
  const ImagedEllipse e = imagedEllipse(smallPinhole(), pose, {0, 0, 0}, 10.0);
  EXPECT_NEAR(e.centre.x, 50.0, 1e-11);
  EXPECT_NEAR(e.centre.y, 40.0 + 0.5 * (lower + upper), 1e-10);
  EXPECT_NEAR(e.semi_b, 0.5 * (lower - upper), 1e-10);
  EXPECT_NEAR(std::abs(std::cos(e.angle)), 1.0, 1e-10);
}

TEST(ImagedEllipse, AgreesWithTheDualConicWithoutLens) {
  const Pose pose{scene::rotationFromAngles({0.4, -0.3, 0.7}), {3, 4, 90}};
  const scene::Point2 traced = imagedEllipse(smallPinhole(), pose, {1, 2, 0}, 6.0).centre;
  const scene::Point2 conic = scene::idealEllipseCentre(pose, {1, 2, 0}, 6.0);
  EXPECT_NEAR(traced.x, 50.0 + 200.0 * conic.x, 1e-10);
  EXPECT_NEAR(traced.y, 40.0 + 200.0 * conic.y, 1e-10);
}

TEST(ImagedEllipse, ThroughALensAgreesWithAFinePolygon) {
  scene::Camera camera = smallPinhole();
  camera.lens = {-0.3, 0.2, 0, 0, 0, 0, 0.002, -0.001};
  const Pose pose{scene::rotationFromAngles({0.3, 0.4, 0.1}), {12, 9, 80}};
  double area = 0, x = 0, y = 0;
  const int count = 20000;
  const auto at = [&](int k) {
    const double t = 2.0 * std::numbers::pi * k / count;
    return *scene::project(camera, scene::transformed(pose, {6.0 * std::cos(t), 6.0 * std::sin(t), 0}));
  };
  for (int k = 0; k < count; ++k) {
    const scene::Point2 a = at(k), b = at(k + 1);
    const double twice = a.x * b.y - a.y * b.x;
    area += twice / 2.0;
    x += (a.x + b.x) * twice / 6.0;
    y += (a.y + b.y) * twice / 6.0;
  }
  const ImagedEllipse e = imagedEllipse(camera, pose, {0, 0, 0}, 6.0);
  EXPECT_NEAR(e.area, area, 1e-4);
  EXPECT_NEAR(e.centre.x, x / area, 1e-6);
  EXPECT_NEAR(e.centre.y, y / area, 1e-6);
}

}  // namespace
