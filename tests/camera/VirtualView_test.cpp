#include "camera/VirtualView.h"

#include <gtest/gtest.h>

#include <array>

#include "PolyFit.h"
#include "StereoFixture.h"
#include "camera/RectificationMaps.h"

namespace {

struct ViewCase {
  LensModel model;
  float f_scale;
  bool turned;
};

StereoCalibParams calibration(const CameraFloats& camera, LensModel model) {
  StereoCalibParams calib;
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera;
  calib.left.intrinsics = {fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2};
  calib.left.width = static_cast<std::uint32_t>(stereo::kSize.width);
  calib.left.height = static_cast<std::uint32_t>(stereo::kSize.height);
  if (model == LensModel::kPoly) {
    const PolyTables tables = fitPolyTables(Image(320, 240, fx, fy, cx, cy, 6, 4), radialLens(k1, 0));
    calib.left.poly_nx = tables.cells_x;
    calib.left.poly_ny = tables.cells_y;
    calib.left.poly_x = tables.x;
    calib.left.poly_y = tables.y;
  }
  return calib;
}

class VirtualViewCases : public testing::TestWithParam<ViewCase> {};

// The maps lead from each whole virtual pixel to its raw one: the view has to lead there, too, and back.
TEST_P(VirtualViewCases, LeadsWhereTheMapsDo) {
  const auto [model, f_scale, turned] = GetParam();
  const stereo::Cameras cameras;
  const RectificationSettings settings = cameras.settings(f_scale);
  const StereoMatrices matrices = stereo::matrices(model);
  const RectificationMaps maps = rectificationMaps(settings, matrices, stereo::kSize, model);
  const Rectification pair = virtualPair(settings, matrices, stereo::kSize, model);
  struct Side {
    VirtualView view;
    const WarpMaps& maps;
  };
  const std::array<Side, 2> sides = {
      Side{{matrices.K1, CalibratedCamera(calibration(stereo::kLeft, model), 0, model), pair.R1, pair.P1}, maps.left},
      Side{{matrices.K2, CalibratedCamera(calibration(stereo::kRight, model), 0, model), pair.R2, pair.P2},
           maps.right}};
  int compared = 0;
  for (const Side& side : sides) {
    const VirtualView view = turned ? side.view.turned(stereo::kSize.height) : side.view;
    for (int row = 0; row < stereo::kSize.height; row += 13) {
      for (int column = 0; column < stereo::kSize.width; column += 17) {
        const cv::Point2d wanted(side.maps.columns.at<float>(row, column), side.maps.rows.at<float>(row, column));
        if (!cv::Rect2d(0, 0, stereo::kSize.width, stereo::kSize.height).contains(wanted)) continue;
        // Column x of the picture that is turned clockwise is row (rows - 1 - x) of the one that is not.
        const cv::Point2d pixel =
            turned ? cv::Point2d(stereo::kSize.height - 1 - row, column) : cv::Point2d(column, row);
        const auto real = view.toReal(pixel);
        ASSERT_TRUE(real);
        EXPECT_LT(cv::norm(*real - wanted), 1e-4);
        const auto back = view.ofReal(*real);
        ASSERT_TRUE(back);
        EXPECT_LT(cv::norm(*back - pixel), 2e-4);  // The polynomial lens is known to 1e-7 of 300 pixels only.
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 200);
}

INSTANTIATE_TEST_SUITE_P(
    Each, VirtualViewCases,
    testing::Values(ViewCase{LensModel::kBrownFive, 1.0F, false}, ViewCase{LensModel::kBrownFive, 0.9F, true},
                    ViewCase{LensModel::kBrownEight, 1.0F, true}, ViewCase{LensModel::kBrownEight, 0.9F, false},
                    ViewCase{LensModel::kFisheye, 1.0F, false}, ViewCase{LensModel::kPoly, 0.9F, false}));

TEST(VirtualView, OfAPairThatIsNotWarpedLeavesThePointsButForTheTurn) {
  const VirtualView view;
  EXPECT_EQ(view.ofReal({3.25, 7.5}), cv::Point2d(3.25, 7.5));
  EXPECT_EQ(view.toReal({3.25, 7.5}), cv::Point2d(3.25, 7.5));
  // The top left pixel of 100 rows goes to the top right corner, and down a row is a column to the left.
  EXPECT_EQ(view.turned(100).ofReal({0.0, 0.0}), cv::Point2d(99.0, 0.0));
  EXPECT_EQ(view.turned(100).ofReal({3.25, 7.5}), cv::Point2d(91.5, 3.25));
  EXPECT_EQ(view.turned(100).toReal({91.5, 3.25}), cv::Point2d(3.25, 7.5));
}

TEST(VirtualView, HasNothingToShowOutsideOfTheLensNorBehindIt) {
  StereoCalibParams calib;
  calib.left.intrinsics = {100, 100, 0, 0, -0.2};  // Images nothing beyond 86.1 pixels.
  const CalibratedCamera lens(calib, 0, LensModel::kBrownFive);
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 100, 0, 0, 0, 100, 0, 0, 0, 1);
  const cv::Mat P = (cv::Mat_<double>(3, 4) << 100, 0, 0, 0, 0, 100, 0, 0, 0, 0, 1, 0);
  EXPECT_FALSE(VirtualView(K, lens, cv::Mat::eye(3, 3, CV_64F), P).ofReal({90.0, 0.0}));
  const cv::Mat half_turn = (cv::Mat_<double>(3, 3) << -1, 0, 0, 0, 1, 0, 0, 0, -1);
  EXPECT_FALSE(VirtualView(K, lens, half_turn, P).toReal({10.0, 10.0}));
}

}  // namespace
