#include "camera/CameraMatrices.h"

#include <gtest/gtest.h>

#include <cmath>

#include "Near.h"

namespace {

const CameraFloats kCamera = {100.1F, 200.2F, 30.3F, 40.4F, 1, 2, 3, 4, 5, 6, 7, 8};

struct RowCase {
  LensModel model;
  cv::Mat row;
};
class CameraMatricesDistortionRow : public testing::TestWithParam<RowCase> {};

TEST_P(CameraMatricesDistortionRow, HasItsModelsOrder) {
  const CameraMatrices matrices = BuildCameraMatrices(GetParam().model, kCamera);
  ASSERT_EQ(matrices.K.type(), CV_64FC1);
  EXPECT_EQ(matrices.K.at<double>(0, 0), static_cast<double>(100.1F));
  EXPECT_THAT(matrices.K, MatNear(cv::Matx33d(100.1F, 0, 30.3F, 0, 200.2F, 40.4F, 0, 0, 1), 0.0));
  const cv::Mat& row = GetParam().row;
  ASSERT_EQ(matrices.D.size(), row.size());
  if (row.empty()) return;
  EXPECT_EQ(matrices.D.type(), CV_64FC1);
  EXPECT_THAT(matrices.D, MatNear(row, 0.0));
}

INSTANTIATE_TEST_SUITE_P(Models, CameraMatricesDistortionRow,
                         testing::Values(RowCase{LensModel::kBrownFive, (cv::Mat_<double>(1, 5) << 1, 2, 7, 8, 3)},
                                         RowCase{LensModel::kBrownEight,
                                                 (cv::Mat_<double>(1, 8) << 1, 2, 7, 8, 3, 4, 5, 6)},
                                         RowCase{LensModel::kFisheye, (cv::Mat_<double>(1, 4) << 1, 2, 3, 4)},
                                         RowCase{LensModel::kPoly, cv::Mat()}));

TEST(CameraMatricesBuilt, WithoutAModelBothAreEmpty) {
  const CameraMatrices matrices = BuildCameraMatrices(std::nullopt, kCamera);
  EXPECT_TRUE(matrices.K.empty());
  EXPECT_TRUE(matrices.D.empty());
}

cv::Matx33d aboutX(double a) { return {1, 0, 0, 0, std::cos(a), -std::sin(a), 0, std::sin(a), std::cos(a)}; }
cv::Matx33d aboutY(double a) { return {std::cos(a), 0, std::sin(a), 0, 1, 0, -std::sin(a), 0, std::cos(a)}; }
cv::Matx33d aboutZ(double a) { return {std::cos(a), -std::sin(a), 0, std::sin(a), std::cos(a), 0, 0, 0, 1}; }

class CameraMatricesEulerAngles : public testing::TestWithParam<std::array<float, 3>> {};

TEST_P(CameraMatricesEulerAngles, AreTakenAboutZThenXThenY) {
  const auto [rx, ry, rz] = GetParam();
  const cv::Mat R = EulerToRotation(GetParam());
  ASSERT_EQ(R.type(), CV_64FC1);
  EXPECT_THAT(R, MatNear(aboutZ(rz) * aboutX(rx) * aboutY(ry), 1e-15));
}

INSTANTIATE_TEST_SUITE_P(Angles, CameraMatricesEulerAngles,
                         testing::Values(std::array<float, 3>{0, 0, 0}, std::array<float, 3>{0.3F, 0, 0},
                                         std::array<float, 3>{0, 0.3F, 0}, std::array<float, 3>{0, 0, 0.3F},
                                         std::array<float, 3>{0.1F, -0.2F, 0.3F},
                                         std::array<float, 3>{-1.5F, 2.5F, 3.1F}));

TEST(CameraMatricesEulerToRotation, QuarterTurnsByHand) {
  const float quarter = 1.57079637F;
  // y first takes z to x, then x leaves it, then z takes it to y.
  const cv::Mat R = EulerToRotation({quarter, quarter, quarter});
  EXPECT_THAT(R * (cv::Mat_<double>(3, 1) << 0, 0, 1), MatNear((cv::Mat_<double>(3, 1) << 0, 1, 0), 1e-7));
  EXPECT_THAT(R * (cv::Mat_<double>(3, 1) << 0, 1, 0), MatNear((cv::Mat_<double>(3, 1) << 0, 0, 1), 1e-7));
}

TEST(CameraMatricesEulerToRotation, AnglesKeepTheirSinglePrecisionValue) {
  const double angle = static_cast<double>(0.1F);
  EXPECT_NEAR(EulerToRotation({0.1F, 0, 0}).at<double>(2, 1), std::sin(angle), 1e-16);
}

}  // namespace
