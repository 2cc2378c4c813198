#include "report/measure/KnownCameras.h"

#include <gtest/gtest.h>

#include <cmath>

#include "MadeDocument.h"

namespace polarline {
namespace {

std::optional<KnownCameras> of(const Check& check) { return knownCameras(made_document::json(check)); }

TEST(KnownCamerasOf, ADocument) {
  Check check = made_document::check();
  check.cameras.model = "fisheye";
  check.cameras.right = {101.0, 102.0, 21.0, 16.0, {0.1, 0.2, 0, 0, 0, 0, 0, 0.8}};
  check.cameras.extrinsics = {0.1, 0.2, 0.3, -5, 0.5, 0.6};
  const auto cameras = of(check);
  ASSERT_TRUE(cameras);
  EXPECT_EQ(cameras->model, LensModel::kFisheye);
  EXPECT_EQ(cameras->calib.left.intrinsics, (std::array<double, 12>{100.0, 100.0, 20.0, 15.0}));
  EXPECT_EQ(cameras->calib.right.intrinsics,
            (std::array<double, 12>{101.0, 102.0, 21.0, 16.0, 0.1, 0.2, 0, 0, 0, 0, 0, 0.8}));
  EXPECT_EQ(cameras->calib.extrinsics, (std::array<double, 6>{0.1, 0.2, 0.3, -5, 0.5, 0.6}));
}

TEST(KnownCamerasNone, WhereTheDocumentDoesNotTellThem) {
  const auto with = [](const auto& change) {
    Check check = made_document::check();
    change(check.cameras);
    return of(check).has_value();
  };
  EXPECT_TRUE(with([](Cameras&) {}));
  EXPECT_FALSE(with([](Cameras& cameras) { cameras.model = "poly"; }));
  EXPECT_FALSE(with([](Cameras& cameras) { cameras.model = "rectified"; }));
  EXPECT_FALSE(with([](Cameras& cameras) { cameras.extrinsics.clear(); }));
  EXPECT_FALSE(with([](Cameras& cameras) { cameras.extrinsics = {0, 0, 0, 0, 0, 0}; })) << "both at one place";
  EXPECT_FALSE(with([](Cameras& cameras) { cameras.left.fx = NAN; }));
}

}  // namespace
}  // namespace polarline
