#include "tools/scene/RayRows.h"

#include <gtest/gtest.h>

#include <ostream>

#include "tools/scene/Lens.h"
#include "tools/scene/PresetRigs.h"

namespace {

using scene::Camera;
using scene::Point2;

struct NamedCamera {
  const char* name;
  Camera camera;
};

void PrintTo(const NamedCamera& named, std::ostream* stream) { *stream << named.name; }

class RayRowsOf : public testing::TestWithParam<NamedCamera> {};

TEST_P(RayRowsOf, EveryRayComesBackToItsPixel) {
  const Camera& camera = GetParam().camera;
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

INSTANTIATE_TEST_SUITE_P(Models, RayRowsOf,
                         testing::Values(NamedCamera{"Brown", scene::brownRig({320, 256, 60}).left},
                                         NamedCamera{"Fisheye", scene::fisheyeRig({320, 200, 60}).left},
                                         NamedCamera{"Poly", scene::polyRig({320, 200, 60}).left}),
                         [](const auto& tested) { return tested.param.name; });

}  // namespace
