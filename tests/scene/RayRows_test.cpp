#include "tools/scene/RayRows.h"

#include <gtest/gtest.h>

#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"

namespace {

using scene::Camera;
using scene::Point2;

class RowsOf : public testing::TestWithParam<Camera> {};

TEST_P(RowsOf, EveryRayComesBackToItsPixel) {
  const Camera& camera = GetParam();
  scene::RayRows rows(camera);
  for (int v = -1; v <= camera.height; ++v) {
    const std::vector<Point2>& rays = rows.next();
    ASSERT_EQ(rays.size(), static_cast<std::size_t>(camera.width) + 2);
    for (int u = -1; u <= camera.width; u += 3) {
      const Point2 pixel =
          scene::pixelFromRaw(camera, scene::distort(camera, rays[static_cast<std::size_t>(u + 1)]).point);
      ASSERT_NEAR(pixel.x, u, 1e-7);
      ASSERT_NEAR(pixel.y, v, 1e-7);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Models, RowsOf,
                         testing::Values(scene::brownRig({320, 256, 60}).left, scene::fisheyeRig({320, 200, 60}).left,
                                         scene::polyRig({320, 200, 60}).left));

}  // namespace
