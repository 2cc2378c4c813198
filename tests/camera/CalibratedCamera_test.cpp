#include "camera/CalibratedCamera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <vector>

#include "tests/camera/PolyFit.h"

namespace {

constexpr double kNearer = 1e-12;

StereoCalibParams calibration() {
  StereoCalibParams calib;
  calib.left.intrinsics = {700, 710, 640, 400, -0.2, 0.06, -0.01, 0.03, -0.02, 0.004, 0.0007, -0.0004};
  calib.right.intrinsics = {705, 700, 630, 410, -0.15, 0.05, -0.02, 0.01, 0.0, 0.0, 0.0, 0.0};
  return calib;
}

cv::Mat coefficientsOf(const CameraCalib& camera, LensModel model) {
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera.intrinsics;
  if (model == LensModel::kFisheye) return (cv::Mat_<double>(1, 4) << k1, k2, k3, k4);
  if (model == LensModel::kBrownFive) return (cv::Mat_<double>(1, 5) << k1, k2, p1, p2, k3);
  return (cv::Mat_<double>(1, 8) << k1, k2, p1, p2, k3, k4, k5, k6);
}

class CalibratedCameraModel : public testing::TestWithParam<LensModel> {};

TEST_P(CalibratedCameraModel, ProjectsAsOpenCv) {
  const StereoCalibParams calib = calibration();
  const CalibratedCamera camera(calib, 0, GetParam());
  const std::vector<cv::Point3d> points = {{0, 0, 1000}, {300, -200, 900}, {-510, 330, 1200}, {5, 7, 400}};
  const cv::Matx33d K(700, 0, 640, 0, 710, 400, 0, 0, 1);
  const cv::Mat D = coefficientsOf(calib.left, GetParam());
  std::vector<cv::Point2d> wanted;
  if (GetParam() == LensModel::kFisheye) {
    cv::fisheye::projectPoints(points, wanted, cv::Vec3d(), cv::Vec3d(), K, D);
  } else {
    cv::projectPoints(points, cv::Vec3d(), cv::Vec3d(), K, D, wanted);
  }
  for (std::size_t k = 0; k < points.size(); ++k) {
    const auto pixel = camera.pixelOf(points[k]);
    ASSERT_TRUE(pixel);
    EXPECT_NEAR(pixel->x, wanted[k].x, 1e-9);
    EXPECT_NEAR(pixel->y, wanted[k].y, 1e-9);
  }
}

TEST_P(CalibratedCameraModel, GivesTheIdealPointBack) {
  const CalibratedCamera camera(calibration(), 0, GetParam());
  for (double y = -0.5; y <= 0.5; y += 0.125) {
    for (double x = -0.75; x <= 0.75; x += 0.125) {
      const auto back = camera.undistorted(camera.distorted({x, y}));
      ASSERT_TRUE(back) << x << " " << y;
      EXPECT_NEAR(back->x, x, kNearer);
      EXPECT_NEAR(back->y, y, kNearer);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Models, CalibratedCameraModel,
                         testing::Values(LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye));

TEST(CalibratedCamera, FisheyeReachesFarBeyondAPinhole) {
  const CalibratedCamera camera(calibration(), 1, LensModel::kFisheye);
  const double wide = std::tan(1.3);  // 74 degrees off the axis.
  const auto back = camera.undistorted(camera.distorted({wide, 0.0}));
  ASSERT_TRUE(back);
  EXPECT_NEAR(back->x, wide, 1e-9);
}

TEST(CalibratedCamera, HasNoInverseBeyondTheLens) {
  // r (1 - 0.2 r^2) is 0.861 at most, where r^2 = 5/3.
  StereoCalibParams calib;
  calib.left.intrinsics = {100, 100, 0, 0, -0.2};
  const CalibratedCamera camera(calib, 0, LensModel::kBrownFive);
  EXPECT_FALSE(camera.idealOf({90.0, 0.0}));
  EXPECT_FALSE(camera.idealOf({95.0, 0.0}));  // The polynomial has this value at -2.6, behind its fold.
  const auto near_the_edge = camera.idealOf({85.0, 0.0});
  ASSERT_TRUE(near_the_edge);
  EXPECT_NEAR(near_the_edge->x * (1.0 - 0.2 * near_the_edge->x * near_the_edge->x), 0.85, kNearer);
}

TEST(CalibratedCamera, SeesNothingBehindItself) {
  const CalibratedCamera camera(calibration(), 0, LensModel::kBrownFive);
  EXPECT_FALSE(camera.pixelOf({0.0, 0.0, 0.0}));
  EXPECT_FALSE(camera.pixelOf({1.0, 1.0, -2.0}));
}

TEST(CalibratedCamera, TakesThePolynomialsOfItsSide) {
  StereoCalibParams calib;
  calib.right.intrinsics = {500, 500, 320, 240};
  calib.right.width = 640;
  calib.right.height = 480;
  const PolyTables tables = fitPolyTables(Image(640, 480, 500, 500, 320, 240, 8, 6), radialLens(-0.1, 0.02));
  calib.right.poly_nx = tables.cells_x;
  calib.right.poly_ny = tables.cells_y;
  calib.right.poly_x = tables.x;
  calib.right.poly_y = tables.y;
  const CalibratedCamera camera(calib, 1, LensModel::kPoly);
  const cv::Point2d ideal(0.31, -0.22);
  const cv::Point2d raw = camera.distorted(ideal);
  const cv::Point2d wanted = radialLens(-0.1, 0.02)(ideal);
  EXPECT_NEAR(raw.x, wanted.x, 1e-5);
  EXPECT_NEAR(raw.y, wanted.y, 1e-5);
  const auto back = camera.undistorted(raw);
  ASSERT_TRUE(back);
  EXPECT_NEAR(back->x, ideal.x, 2e-7);
  EXPECT_NEAR(back->y, ideal.y, 2e-7);
}

TEST(CalibratedCamera, CutOutPicturesKeepTheLens) {
  StereoCalibParams calib = calibration();
  calib.left.width = 1280;
  calib.left.height = 800;
  const PolyTables tables = fitPolyTables(Image(1280, 800, 700, 710, 640, 400, 8, 6), radialLens(-0.1, 0.02));
  calib.left.poly_nx = tables.cells_x;
  calib.left.poly_ny = tables.cells_y;
  calib.left.poly_x = tables.x;
  calib.left.poly_y = tables.y;
  for (const LensModel model : {LensModel::kBrownEight, LensModel::kPoly}) {
    const CalibratedCamera camera(calib, 0, model);
    const CalibratedCamera cropped = camera.cropped({100.0, 40.0});
    EXPECT_EQ(cropped.centre(), cv::Point2d(540.0, 360.0));
    const auto whole = camera.pixelOf({300.0, -200.0, 900.0});
    const auto cut_out = cropped.pixelOf({300.0, -200.0, 900.0});
    ASSERT_TRUE(whole && cut_out);
    EXPECT_NEAR(cut_out->x, whole->x - 100.0, 1e-12);
    EXPECT_NEAR(cut_out->y, whole->y - 40.0, 1e-12);
  }
}

}  // namespace
