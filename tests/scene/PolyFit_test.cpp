#include "tools/scene/PolyFit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tools/scene/Lens.h"
#include "tools/scene/PolyBasis.h"
#include "tools/scene/PolyLens.h"
#include "tools/scene/PresetRigs.h"

namespace {

using scene::Camera;
using scene::Point2;

/// The largest step of the model across the cell borders, in pixels.
double largestBorderStep(const Camera& camera) {
  const scene::PolyCells cells = scene::polyCells(camera);
  const double tiny = 1e-12;
  double largest = 0.0;
  const auto compare = [&](Point2 a, Point2 b) {
    largest =
        std::max(largest, camera.fx * scene::norm(scene::distort(camera, a).point - scene::distort(camera, b).point));
  };
  for (int border = 1; border < camera.table.columns; ++border) {
    const double x = cells.x_min + border * cells.cell_w;
    for (double y = cells.y_min; y < cells.y_min + camera.table.rows * cells.cell_h; y += 0.01)
      compare({x - tiny, y}, {x + tiny, y});
  }
  for (int border = 1; border < camera.table.rows; ++border) {
    const double y = cells.y_min + border * cells.cell_h;
    for (double x = cells.x_min; x < cells.x_min + camera.table.columns * cells.cell_w; x += 0.01)
      compare({x, y - tiny}, {x, y + tiny});
  }
  return largest;
}

TEST(PolyFit, CellsMeetAtTheirBorders) {
  const scene::StereoRig rig = scene::polyRig({1920, 1200, 60});
  EXPECT_LT(largestBorderStep(rig.left), 1e-4);
  EXPECT_LT(largestBorderStep(rig.right), 1e-4);
}

TEST(PolyFit, TableHasTenCoefficientsACell) {
  const Camera camera = scene::polyRig({1920, 1200, 60}).left;
  EXPECT_EQ(camera.table.columns, 6);
  EXPECT_EQ(camera.table.rows, 4);
  EXPECT_EQ(camera.table.x.size(), 240U);
  EXPECT_EQ(camera.table.y.size(), 240U);
}

TEST(PolyFit, ALensOfThirdDegreeIsReproduced) {
  Camera lens = scene::brownRig({640, 512, 60}).left;
  lens.lens = {-0.2, 0, 0, 0, 0, 0, 0.001, -0.002};  // third degree in x and y
  const Camera poly = scene::fitPolyCamera(lens, 3, 2);
  for (const Point2 at : {Point2{0.0, 0.0}, Point2{0.3, -0.2}, Point2{-0.38, 0.33}}) {
    EXPECT_LT(scene::norm(scene::distort(poly, at).point - scene::distort(lens, at).point), 1e-7);
  }
}

TEST(PolyFit, TheStrongLensIsFollowedToATenthOfAPixel) {
  Camera lens = scene::brownRig({1920, 1200, 60}).left;
  lens.lens = {-0.27, 0.11, -0.025, 0, 0, 0, 0, 0};
  const Camera poly = scene::fitPolyCamera(lens, 6, 4);
  for (int v = 0; v < 1200; v += 40) {
    for (int u = 0; u < 1920; u += 40) {
      const auto ideal = scene::undistort(lens, scene::rawFromPixel(lens, {1.0 * u, 1.0 * v}));
      ASSERT_TRUE(ideal);
      const Point2 pixel = scene::pixelFromRaw(poly, scene::distort(poly, *ideal).point);
      EXPECT_LT(scene::norm(pixel - Point2{1.0 * u, 1.0 * v}), 0.1) << u << ' ' << v;
    }
  }
}

TEST(PolyFitLens, OneCellByHand) {
  Camera camera;
  camera.model = scene::LensModel::kPoly;
  camera.width = camera.height = 100;
  camera.fx = camera.fy = 100.0;
  camera.cx = camera.cy = 50.0;
  camera.table = {1, 1, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {10, 9, 8, 7, 6, 5, 4, 3, 2, 1}};
  // x = 0.5, y = 0.25: 1, x, y, x2, xy, y2, x3, x2y, xy2, y3 = 1, .5, .25, .25, .125, .0625, .125, .0625, .03125,
  // .015625
  const double taken_x = 1 + 1 + 0.75 + 1 + 0.625 + 0.375 + 0.875 + 0.5 + 0.28125 + 0.15625;
  const double taken_y = 10 + 4.5 + 2 + 1.75 + 0.75 + 0.3125 + 0.5 + 0.1875 + 0.0625 + 0.015625;
  const Point2 raw = scene::distort(camera, {0.5, 0.25}).point;
  EXPECT_DOUBLE_EQ(raw.x, 0.5 - taken_x);
  EXPECT_DOUBLE_EQ(raw.y, 0.25 - taken_y);
}

TEST(PolyFitLens, PointsOutsideTakeTheBorderCell) {
  const Camera camera = scene::polyRig({1920, 1200, 60}).left;
  EXPECT_EQ(scene::polyCellIndex(camera, {-9.0, -9.0}), 0U);
  EXPECT_EQ(scene::polyCellIndex(camera, {9.0, -9.0}), 5U);
  EXPECT_EQ(scene::polyCellIndex(camera, {-9.0, 9.0}), 18U);
  EXPECT_EQ(scene::polyCellIndex(camera, {9.0, 9.0}), 23U);
  EXPECT_EQ(scene::polyCellIndex(camera, {std::nan(""), 9.0}), 18U);
}

TEST(PolyFitBasis, GlobalCoefficientsGiveTheLocalPolynomial) {
  const scene::Box box{0.2, -0.1, 0.5, 0.3};
  const scene::Ten local{0.3, -1.0, 0.7, 0.2, -0.4, 0.9, 1.1, -0.6, 0.5, -0.8};
  const scene::Ten global = scene::globalCoefficients(box, local);
  const scene::Ten plain{1,      0.37,     0.11,     0.1369,   0.0407,
                         0.0121, 0.050653, 0.015059, 0.004477, 0.001331};  // x = 0.37, y = 0.11
  const scene::Ten monomials = scene::localMonomials(box, {0.37, 0.11});
  double by_local = 0.0, by_global = 0.0;
  for (std::size_t k = 0; k < 10; ++k) {
    by_local += local.at(k) * monomials.at(k);
    by_global += global.at(k) * plain.at(k);
  }
  EXPECT_NEAR(by_global, by_local, 1e-12);
}

}  // namespace
