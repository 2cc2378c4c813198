#include "tools/scene/RectifiedCentre.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tools/scene/ImagedEllipse.h"
#include "tools/scene/PresetRigs.h"

namespace {

using scene::Camera;
using scene::Point2;

const scene::Pose kTilted{scene::rotationFromAngles({0.3, -0.2, 0.1}), {20.0, -30.0, 400.0}};
const scene::Point3 kCentre{60.0, 40.0, 0.0};
constexpr double kRadius = 12.0;

TEST(RectifiedCentre, WithoutLensOrTurnItIsTheImagesCentreByTheGivenNumbers) {
  const Camera camera = scene::rectifiedRig({640, 512, 60.0}).left;
  Camera given = camera;
  given.cy += 3.0;
  given.fx *= 1.01;
  const Point2 pixel = scene::imagedEllipse(camera, kTilted, kCentre, kRadius).centre;
  const Point2 centre = scene::rectifiedCentre({camera, given, {}}, kTilted, kCentre, kRadius);
  EXPECT_NEAR(centre.x, (pixel.x - given.cx) / given.fx, 1e-12);
  EXPECT_NEAR(centre.y, (pixel.y - given.cy) / given.fy, 1e-12);
}

TEST(RectifiedCentre, TracedOutlineMeetsTheFormulaWhereTheLensesAreAlike) {
  // A difference of the lenses that is too small to show, so that the outline is traced all the same.
  const scene::Matrix3 turn = scene::rotationFromAngles({0.02, -0.03, 0.01});
  for (const auto& rig : {scene::brownRig({640, 512, 60.0}), scene::fisheyeRig({640, 400, 50.0})}) {
    Camera given = rig.left;
    given.lens[0] += 1e-13;
    const Point2 exact = scene::rectifiedCentre({rig.left, rig.left, turn}, kTilted, kCentre, kRadius);
    const Point2 traced = scene::rectifiedCentre({rig.left, given, turn}, kTilted, kCentre, kRadius);
    EXPECT_NEAR(traced.x, exact.x, 1e-11);
    EXPECT_NEAR(traced.y, exact.y, 1e-11);
  }
}

TEST(RectifiedCentre, ALensWithoutInverseGivesNoNumber) {
  const Camera camera = scene::rectifiedRig({640, 512, 60.0}).left;
  Camera given = camera;
  given.lens[0] = -60.0;
  EXPECT_TRUE(std::isnan(scene::rectifiedCentre({camera, given, {}}, kTilted, kCentre, kRadius).y));
}

}  // namespace
