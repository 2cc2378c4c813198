#include "camera/PinholeCameraIntrinsicsPOL.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <optional>
#include <type_traits>

#include "LensLaws.h"
#include "Near.h"
#include "PolyFit.h"

namespace {

using Camera = PinholeCameraIntrinsicsPOL;
const cv::Point2d kUntouched(-77.0, -78.0);

TEST(PinholeCameraIntrinsicsPOL, StartsWithAllZerosScaleOneAndNoTables) {
  const Camera camera;
  EXPECT_EQ(camera.width(), 0);
  EXPECT_EQ(camera.height(), 0);
  EXPECT_EQ(camera.K(), (std::array<double, 9>{}));
  EXPECT_EQ(camera.scale(), 1.0);
  EXPECT_EQ(camera.cells_x(), 0);
  EXPECT_FALSE(camera.hasTables());
  EXPECT_EQ(camera.image().x_max, 0.0);
  EXPECT_TRUE(camera.table_x().empty());
}

PolyTables numberedTables(std::uint8_t cells_x, std::uint8_t cells_y) {
  PolyTables tables{cells_x, cells_y, {}, {}};
  for (std::size_t k = 0; k < 500; ++k) {
    tables.x[k] = static_cast<float>(k);
    tables.y[k] = -static_cast<float>(k);
  }
  return tables;
}

TEST(PinholeCameraIntrinsicsPOL, TakesAsManyCoefficientsAsItHasCells) {
  const Camera camera(1200, 800, 400, 200, 400, 300, 2.0, numberedTables(6, 4));
  EXPECT_EQ(camera.width(), 1200);
  EXPECT_EQ(camera.height(), 800);
  EXPECT_EQ(camera.K(), (std::array<double, 9>{400, 0, 400, 0, 200, 300, 0, 0, 1}));
  EXPECT_EQ(camera.scale(), 2.0);
  EXPECT_EQ(camera.cells_x(), 6);
  EXPECT_EQ(camera.cells_y(), 4);
  ASSERT_EQ(camera.table_x().size(), 240U);
  ASSERT_EQ(camera.table_y().size(), 240U);
  EXPECT_EQ(camera.table_x()[239], 239.0F);
  EXPECT_EQ(camera.table_y()[239], -239.0F);
  EXPECT_EQ(camera.image().columns, 6U);
  EXPECT_EQ(camera.image().x_max, 2.0);
}

TEST(PinholeCameraIntrinsicsPOL, AGridThatTheBlockCannotHoldIsNone) {
  for (const auto& [cells_x, cells_y] : {std::pair{0, 4}, std::pair{6, 0}, std::pair{51, 1}, std::pair{255, 255}}) {
    const Camera camera(1200, 800, 400, 200, 400, 300, 1.0,
                        numberedTables(static_cast<std::uint8_t>(cells_x), static_cast<std::uint8_t>(cells_y)));
    EXPECT_FALSE(camera.hasTables());
    EXPECT_EQ(camera.cells_y(), 0);
    EXPECT_TRUE(camera.table_x().empty());
    EXPECT_EQ(camera.image().columns, 0U);
  }
  EXPECT_TRUE(Camera(1200, 800, 400, 200, 400, 300, 1.0, numberedTables(10, 5)).hasTables());
}

TEST(PinholeCameraIntrinsicsPOL, WithoutTablesThereIsNoDistortion) {
  const Camera camera(1200, 800, 400, 200, 400, 300, 1.0, {});
  cv::Point2d out;
  EXPECT_TRUE(camera.AddDistortion({0.4, -0.3}, out));
  EXPECT_EQ(out, cv::Point2d(0.4, -0.3));
  EXPECT_TRUE(camera.RemoveDistortion({0.4, -0.3}, out));
  EXPECT_EQ(out, cv::Point2d(0.4, -0.3));
}

TEST(PinholeCameraIntrinsicsPOL, CopiesOwnTheirTables) {
  auto original = std::make_unique<Camera>(1200, 800, 400, 200, 400, 300, 1.0, numberedTables(6, 4));
  const Camera copy = *original;
  EXPECT_NE(copy.table_x().data(), original->table_x().data());
  original.reset();
  EXPECT_EQ(copy.table_x()[17], 17.0F);
  cv::Point2d raw;
  EXPECT_TRUE(copy.AddDistortion({0.1, 0.1}, raw));
}

TEST(PinholeCameraIntrinsicsPOL, IsOneLineOfDescent) {
  static_assert(std::is_abstract_v<CameraIntrinsicsBase>);
  static_assert(std::has_virtual_destructor_v<CameraIntrinsicsBase>);
  static_assert(std::is_base_of_v<CameraIntrinsicsBase, PinholeCameraIntrinsics>);
  static_assert(std::is_base_of_v<PinholeCameraIntrinsics, Camera>);
  const std::unique_ptr<CameraIntrinsicsBase> camera = std::make_unique<Camera>();
  EXPECT_TRUE(camera->SetParams({80, 60, 100, 200, 40, 30}));
  cv::Point2d pixel;
  EXPECT_TRUE(camera->DistortPixel({3, 4}, pixel));
  EXPECT_EQ(pixel, cv::Point2d(3, 4));
}

StereoCalibParams calibration() {
  StereoCalibParams calib;
  calib.left.width = 1200;
  calib.left.height = 800;
  calib.left.intrinsics = {400, 200, 401, 300};
  calib.left.poly_nx = 6;
  calib.left.poly_ny = 4;
  calib.left.poly_x[239] = 5.0F;
  calib.right.width = 1000;
  calib.right.height = 700;
  calib.right.intrinsics = {410, 210, 402, 310};
  calib.right.poly_nx = 2;
  calib.right.poly_ny = 3;
  calib.right.poly_y[59] = 7.0F;
  return calib;
}

TEST(PinholeCameraIntrinsicsPOLLoadCalib, IndexZeroIsTheLeftCameraOfTheCalibration) {
  Camera camera(9, 9, 9, 9, 9, 9, 3.0, {});
  ASSERT_TRUE(camera.LoadCalib(calibration(), 0));
  EXPECT_EQ(camera.width(), 1200);
  EXPECT_EQ(camera.height(), 800);
  EXPECT_EQ(camera.K(), (std::array<double, 9>{400, 0, 401, 0, 200, 300, 0, 0, 1}));
  EXPECT_EQ(camera.scale(), 1.0);
  EXPECT_EQ(camera.cells_x(), 6);
  EXPECT_EQ(camera.table_x().back(), 5.0F);
  EXPECT_EQ(camera.image().x_max, (1200.0 - 401.0) / 400.0);
}

TEST(PinholeCameraIntrinsicsPOLLoadCalib, IndexOneIsTheRightCameraOfTheCalibration) {
  Camera camera;
  ASSERT_TRUE(camera.LoadCalib(calibration(), 1));
  EXPECT_EQ(camera.width(), 1000);
  EXPECT_EQ(camera.K()[0], 410.0);
  EXPECT_EQ(camera.cells_x(), 2);
  EXPECT_EQ(camera.cells_y(), 3);
  ASSERT_EQ(camera.table_y().size(), 60U);
  EXPECT_EQ(camera.table_y().back(), 7.0F);
}

TEST(PinholeCameraIntrinsicsPOLLoadCalib, AnyOtherIndexChangesNothing) {
  Camera camera(9, 9, 9, 9, 9, 9, 3.0, {});
  EXPECT_FALSE(camera.LoadCalib(calibration(), 2));
  EXPECT_FALSE(camera.LoadCalib(calibration(), -1));
  EXPECT_EQ(camera.width(), 9);
  EXPECT_EQ(camera.scale(), 3.0);
}

TEST(PinholeCameraIntrinsicsPOLSetParams, LeavesTablesAndGridAsTheyWere) {
  Camera camera(1200, 800, 400, 200, 400, 300, 2.0, numberedTables(6, 4));
  ASSERT_TRUE(camera.SetParams({80, 60, 100, 200, 40, 30}));
  EXPECT_EQ(camera.width(), 80);
  EXPECT_EQ(camera.image().x_max, 2.0);
  EXPECT_EQ(camera.table_x().size(), 240U);
  EXPECT_FALSE(camera.SetParams({1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(camera.width(), 80);
}

/// x and y from -1 to 1, tables of two columns whose constants are given: what each half adds to x.
Camera twoHalves(float left_adds, float right_adds) {
  PolyTables tables{2, 1, {}, {}};
  tables.x[0] = -left_adds;
  tables.x[10] = -right_adds;
  return {1000, 1000, 500, 500, 500, 500, 1.0, tables};
}

TEST(PinholeCameraIntrinsicsPOLAddDistortion, AllZeroTablesReturnTheirInput) {
  const Camera camera = twoHalves(0, 0);
  cv::Point2d raw;
  ASSERT_TRUE(camera.AddDistortion({0.1, -0.7}, raw));
  EXPECT_EQ(raw, cv::Point2d(0.1, -0.7));
  ASSERT_TRUE(camera.RemoveDistortion({0.1, -0.7}, raw));
  EXPECT_EQ(raw, cv::Point2d(0.1, -0.7));
}

TEST(PinholeCameraIntrinsicsPOLAddDistortion, APointOutsideOfTheImageTakesTheNearestColumn) {
  const Camera camera = twoHalves(0.25F, 0.5F);
  cv::Point2d raw;
  ASSERT_TRUE(camera.AddDistortion({-3, 5}, raw));
  EXPECT_EQ(raw, cv::Point2d(-2.75, 5));
  ASSERT_TRUE(camera.AddDistortion({3, -5}, raw));
  EXPECT_EQ(raw, cv::Point2d(3.5, -5));
}

TEST(PinholeCameraIntrinsicsPOLAddDistortion, ExtrapolatesThePolynomialOutsideOfTheImage) {
  PolyTables tables{2, 1, {}, {}};
  tables.x[1] = tables.x[11] = 0.5F;
  const Camera camera(1000, 1000, 500, 500, 500, 500, 1.0, tables);
  cv::Point2d raw;
  ASSERT_TRUE(camera.AddDistortion({-3, 0}, raw));
  EXPECT_EQ(raw.x, -1.5);
  ASSERT_TRUE(camera.AddDistortion({4, 0}, raw));
  EXPECT_EQ(raw.x, 2.0);
}

TEST(PinholeCameraIntrinsicsPOLAddDistortion, AddsTheNarrowedCorrectionInDouble) {
  const Camera camera = twoHalves(0.1F, 0.1F);
  cv::Point2d raw;
  ASSERT_TRUE(camera.AddDistortion({0.3, 0}, raw));
  EXPECT_EQ(raw.x, 0.3 + static_cast<double>(0.1F));
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, StaysWhereTheErrorIsWithinTheTolerance) {
  const Camera camera = twoHalves(0.9e-6F, 0.9e-6F);
  cv::Point2d ideal;
  ASSERT_TRUE(camera.RemoveDistortion({0.3, 0.4}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(0.3, 0.4));
}

/// Adds the same to every point.
Camera shifting(float x, float y) {
  PolyTables tables{1, 1, {}, {}};
  tables.x[0] = -x;
  tables.y[0] = -y;
  return {1000, 1000, 500, 500, 500, 500, 1.0, tables};
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, AnErrorOfTheToleranceIsGoodEnough) {
  // Two floats whose sum is the double 1e-6.
  const float high = 0x1.0c6f7ap-20F;
  const float low = 0x1.6bdb1ap-49F;
  ASSERT_EQ(static_cast<double>(high) + static_cast<double>(low), 1e-6);
  cv::Point2d ideal;
  ASSERT_TRUE(shifting(high, low).RemoveDistortion({0, 0}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(0, 0));
  const float above = 2 * low;
  ASSERT_TRUE(shifting(high, above).RemoveDistortion({0, 0}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(-static_cast<double>(high), -static_cast<double>(above)));
}

// Each half takes what the border point came from into the other half.
constexpr float kSmallStep = 0.0095F;  // Less than the bias of 0.01 of a cell of width 1.
constexpr float kLargeStep = 0.0105F;  // More than it.

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, APointThatFlipsBetweenCellsIsSettledByTheBias) {
  const Camera camera = twoHalves(-kSmallStep, kSmallStep);
  cv::Point2d ideal;
  ASSERT_TRUE(camera.RemoveDistortion({0, 0}, ideal));
  // The right half's answer, though it lies in the left half.
  EXPECT_EQ(ideal, cv::Point2d(-static_cast<double>(kSmallStep), 0));
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, TheBiasAloneMaySettleAtOnce) {
  // The target lies so little left of the border that the bias takes it to the right half, whose correction is nothing.
  PolyTables tables{3, 1, {}, {}};
  tables.x[0] = 0.5F;     // Left column, x below 0: adds -0.5, the inverse lands in the last column.
  tables.x[20] = -0.25F;  // Last column, x above 0.25: adds 0.25, the inverse lands left of it or in the first.
  const Camera camera(300, 100, 400, 100, 100, 50, 1.0, tables);
  // Columns of 0.25 from -0.25. From -0.001: left, then 0.499 (last), then -0.251 (left), 0.499 and so on.
  cv::Point2d ideal;
  ASSERT_TRUE(camera.RemoveDistortion({-0.001, 0}, ideal));
  EXPECT_EQ(ideal, cv::Point2d(-0.001, 0));
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, APointThatFlipsInSpiteOfTheBiasFailsWithTheLastCorrection) {
  const Camera camera = twoHalves(-kLargeStep, kLargeStep);
  cv::Point2d output;
  EXPECT_FALSE(camera.RemoveDistortion({0, 0}, output));
  // An even number of steps ends where it began, in the right half.
  EXPECT_EQ(output, cv::Point2d(static_cast<double>(kLargeStep), 0));
}

/// Adds k x to x.
Camera scaling(float k) {
  PolyTables tables{1, 1, {}, {}};
  tables.x[1] = -k;
  return {1000, 1000, 500, 500, 500, 500, 1.0, tables};
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, ConvergingOnTheLastStepIsTooLate) {
  const auto k = static_cast<double>(0.966F);
  const double least = 1e-6 / std::pow(k, 200);  // Settles with step 199.
  cv::Point2d ideal;
  ASSERT_TRUE(scaling(0.966F).RemoveDistortion({least * 0.99, 0}, ideal));
  EXPECT_NEAR(ideal.x, least * 0.99 / (1 + k), 1e-6);
  // One cell only: the second try does as the first.
  EXPECT_FALSE(scaling(0.966F).RemoveDistortion({least * 1.01, 0}, ideal));
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, OutputMayBeTheInput) {
  cv::Point2d point(0.3, 0.1);
  ASSERT_TRUE(scaling(0.25F).RemoveDistortion(point, point));
  EXPECT_THAT(point, PointNear(cv::Point2d(0.24, 0.1), 1e-6));
}

TEST(PinholeCameraIntrinsicsPOLRemoveDistortion, NanFails) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinity = std::numeric_limits<double>::infinity();
  cv::Point2d output;
  EXPECT_FALSE(scaling(0.25F).RemoveDistortion({nan, 0}, output));
  EXPECT_FALSE(scaling(0.25F).RemoveDistortion({0, infinity}, output));
  EXPECT_FALSE(scaling(0.25F).RemoveDistortion({1e300, -1e300}, output));
}

/// 6 x 4 cells over 1920 x 1200 pixels, fitted to a strong barrel lens.
Camera fittedCamera(double k1, double k2) {
  const Image grid(1920, 1200, 1100.3, 1101.7, 958.4, 603.9, 6, 4);
  return {1920, 1200, 1100.3, 1101.7, 958.4, 603.9, 1.0, fitPolyTables(grid, radialLens(k1, k2))};
}

cv::Rect2d areaOf(const Camera& camera) {
  const Image& image = camera.image();
  return {image.x_min, image.y_min, image.x_max - image.x_min, image.y_max - image.y_min};
}

RoundTrip tripOf(const Camera& camera, double tolerance) {
  // 241 points a side: every 40th column and every 60th row is a cell border.
  return roundTrip([&](const cv::Point2d& in, cv::Point2d& out) { return camera.AddDistortion(in, out); },
                   [&](const cv::Point2d& in, cv::Point2d& out) { return camera.RemoveDistortion(in, out); },
                   areaOf(camera), 241, tolerance);
}

TEST(PinholeCameraIntrinsicsPOLFittedTables, StandForTheLensToATwentiethOfAPixel) {
  const Camera camera = fittedCamera(-0.22, 0.04);
  const LensFunction lens = radialLens(-0.22, 0.04);
  for (double y = -0.54; y < 0.54; y += 0.01) {
    for (double x = -0.87; x < 0.87; x += 0.01) {
      cv::Point2d raw;
      camera.AddDistortion({x, y}, raw);
      EXPECT_THAT(raw, PointNear(lens({x, y}), 5e-5));
    }
  }
}

TEST(PinholeCameraIntrinsicsPOLFittedTables, DistortThenUndistortGivesThePointBackOnADenseGrid) {
  // A cubic lens: neighbouring cells hold the same polynomial but for the rounding of their coefficients.
  const RoundTrip trip = tripOf(fittedCamera(-0.22, 0.0), 1e-6 / (1.0 - 3.0 * 0.22 * 1.07));
  EXPECT_TRUE(trip.never_back.empty());
  EXPECT_TRUE(trip.far.empty()) << "the residual over the least slope of the lens bounds the error of the point";
  EXPECT_LE(trip.worst_residual, 1.1e-6);
}

bool isOnABorder(const cv::Point2d& point, const Image& grid) {
  const double i = (point.x - grid.x_min) / grid.cell_w;
  const double j = (point.y - grid.y_min) / grid.cell_h;
  return std::min(std::abs(i - std::round(i)), std::abs(j - std::round(j))) < 1e-3;
}

TEST(PinholeCameraIntrinsicsPOLFittedTables, WhereCellsDoNotMeetOnlyPointsOnTheirBordersComeBackMoved) {
  const Camera camera = fittedCamera(-0.22, 0.04);
  const RoundTrip trip = tripOf(camera, 1e-6 / (1.0 - 3.0 * 0.22 * 1.07));
  EXPECT_TRUE(trip.never_back.empty());
  EXPECT_FALSE(trip.far.empty());
  for (const cv::Point2d& point : trip.far) EXPECT_TRUE(isOnABorder(point, camera.image())) << point;
  // The step between two cells, over the slope of the lens.
  EXPECT_LE(trip.worst, 1.5e-4);
}

TEST(PinholeCameraIntrinsicsPOLFittedTables, ProjectThenBackProjectGivesThePointBack) {
  const Camera camera = fittedCamera(-0.22, 0.04);
  for (const cv::Vec3d& point : {cv::Vec3d(100, 200, 1000), cv::Vec3d(-700, 400, 1000), cv::Vec3d(3, -2, 5)}) {
    cv::Point2d pixel;
    cv::Vec3d back;
    ASSERT_TRUE(camera.Project(point, pixel));
    ASSERT_TRUE(camera.BackProject(pixel, point[2], back));
    EXPECT_LE(cv::norm(back - point), 3e-6 * point[2]);
  }
}

TEST(PinholeCameraIntrinsicsPOLFittedTables, DistortThenUndistortAPixelOfTheScaledCamera) {
  const Image grid(1920, 1200, 1100.3, 1101.7, 958.4, 603.9, 6, 4);
  const Camera camera(1920, 1200, 1100.3, 1101.7, 958.4, 603.9, 0.75, fitPolyTables(grid, radialLens(-0.22, 0.04)));
  for (const cv::Point2d& pixel : {cv::Point2d(500, 300), cv::Point2d(1300, 900), cv::Point2d(958.4, 603.9)}) {
    cv::Point2d raw;
    cv::Point2d back;
    ASSERT_TRUE(camera.DistortPixel(pixel, raw));
    ASSERT_TRUE(camera.UndistortPixel(raw, back));
    EXPECT_THAT(back, PointNear(pixel, 3e-3));
  }
}

}  // namespace
