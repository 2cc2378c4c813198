#include "camera/PolyRectifyMap.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>

#include "FakeCamera.h"
#include "Near.h"
#include "camera/PinholeCameraIntrinsicsPOL.h"

namespace {

const cv::Size kSize(320, 240);
const cv::Mat kK = (cv::Mat_<double>(3, 3) << 300, 0, 158, 0, 310, 122, 0, 0, 1);
const cv::Mat kP = (cv::Mat_<double>(3, 4) << 280, 0, 165, -3000, 0, 280, 117, 0, 0, 0, 1, 0);
const cv::Mat kRotation = (cv::Mat_<double>(3, 1) << 0.05, -0.03, 0.1);

PinholeCameraIntrinsicsPOL zeroTables() {
  PolyTables tables;
  tables.cells_x = 6;
  tables.cells_y = 4;
  return {320, 240, 300, 310, 158, 122, 1.0, tables};
}

struct Maps {
  cv::Mat first, second;
};

Maps polyMaps(const CameraIntrinsicsBase& camera, const cv::Mat& rotation, const cv::Mat& P, int type = CV_32FC1,
              const cv::Mat& K = kK) {
  Maps maps;
  InitPolyRectifyMap(K, camera, rotation, P, kSize, type, maps.first, maps.second);
  return maps;
}

cv::Mat matrixOf(const cv::Mat& vector) {
  cv::Mat matrix;
  cv::Rodrigues(vector, matrix);
  return matrix;
}

TEST(PolyRectifyMap, ZeroTablesAreTheMapsOfALensWithoutDistortion) {
  Maps expected;
  cv::initUndistortRectifyMap(kK, cv::Mat(), matrixOf(kRotation), kP, kSize, CV_32FC1, expected.first, expected.second);
  const Maps maps = polyMaps(zeroTables(), matrixOf(kRotation), kP);
  EXPECT_THAT(maps.first, MatNear(expected.first, 1e-4));
  EXPECT_THAT(maps.second, MatNear(expected.second, 1e-4));
}

TEST(PolyRectifyMap, ARotationMayBeItsVectorOrNone) {
  const Maps from_matrix = polyMaps(zeroTables(), matrixOf(kRotation), kP);
  EXPECT_THAT(polyMaps(zeroTables(), kRotation, kP).first, MatNear(from_matrix.first, 1e-4));
  const Maps none = polyMaps(zeroTables(), cv::Mat(), kP);
  EXPECT_THAT(none.first, MatNear(polyMaps(zeroTables(), cv::Mat::eye(3, 3, CV_64F), kP).first, 0.0));
}

TEST(PolyRectifyMap, NoProjectionIsTheIdentity) {
  // Pixel (j, i) is the ray (j, i, 1).
  const Maps maps = polyMaps(zeroTables(), cv::Mat(), cv::Mat());
  EXPECT_EQ(maps.first.at<float>(2, 3), 300.0F * 3 + 158);
  EXPECT_EQ(maps.second.at<float>(2, 3), 310.0F * 2 + 122);
}

TEST(PolyRectifyMap, GoesThroughTheLens) {
  const Maps maps = polyMaps(FakeCamera(), cv::Mat(), cv::Mat());
  EXPECT_EQ(maps.first.at<float>(2, 3), 300.0F * 3.25F + 158);
  EXPECT_EQ(maps.second.at<float>(2, 3), 310.0F * 2.5F + 122);
}

TEST(PolyRectifyMap, RaysAreSummedAlongTheRow) {
  // The matrix takes 3000 away, so that the roundings of the sum show in the small number that is left.
  constexpr int kColumns = 10000;
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 1, 0, -3000, 0, 1, 0, 0, 0, 1);
  const cv::Mat scaled = (cv::Mat_<double>(3, 3) << 3, 0, 0, 0, 3, 0, 0, 0, 1);
  cv::Mat columns, rows;
  InitPolyRectifyMap(K, PinholeCameraIntrinsicsPOL(), cv::Mat(), scaled, {kColumns, 1}, CV_32FC1, columns, rows);
  const double step = cv::Matx33d(scaled).inv()(0, 0);
  double sum = 0.0;
  int told_apart = 0;
  for (int column = 0; column < kColumns; ++column, sum += step) {
    ASSERT_EQ(columns.at<float>(0, column), static_cast<float>(sum - 3000)) << column;
    if (static_cast<float>(sum - 3000) != static_cast<float>(step * column - 3000)) ++told_apart;
  }
  EXPECT_GT(told_apart, 0);
}

TEST(PolyRectifyMap, EachPixelProjectsBackToItself) {
  const Maps maps = polyMaps(zeroTables(), kRotation, kP);
  const cv::Matx33d forward = cv::Matx33d(kP.colRange(0, 3)) * cv::Matx33d(matrixOf(kRotation));
  for (int row = 0; row < kSize.height; row += 17) {
    for (int column = 0; column < kSize.width; column += 19) {
      const double u = maps.first.at<float>(row, column);
      const double v = maps.second.at<float>(row, column);
      const cv::Vec3d pixel = forward * cv::Vec3d((u - 158) / 300, (v - 122) / 310, 1);
      EXPECT_NEAR(pixel[0] / pixel[2], column, 1e-4);
      EXPECT_NEAR(pixel[1] / pixel[2], row, 1e-4);
    }
  }
}

TEST(PolyRectifyMap, ARayThatDoesNotPointForwardMapsToTheOppositeInfinity) {
  // Half a turn about y: (j, i, 1) becomes (-j, i, -1).
  const cv::Mat half_turn = (cv::Mat_<double>(3, 3) << -1, 0, 0, 0, 1, 0, 0, 0, -1);
  const Maps maps = polyMaps(zeroTables(), half_turn, cv::Mat());
  const float infinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(maps.first.at<float>(2, 3), infinity);
  EXPECT_EQ(maps.second.at<float>(2, 3), -infinity);
  EXPECT_EQ(maps.first.at<float>(0, 0), infinity);
  EXPECT_EQ(maps.second.at<float>(0, 0), infinity);
}

TEST(PolyRectifyMap, ASingularProjectionGivesTheZeroInverseAndSoNoForwardRay) {
  const Maps maps = polyMaps(zeroTables(), cv::Mat(), cv::Mat::ones(3, 4, CV_64F));
  EXPECT_TRUE(std::isinf(maps.first.at<float>(5, 5)));
  EXPECT_TRUE(std::isinf(maps.second.at<float>(5, 5)));
}

class PolyRectifyMapFixed : public testing::TestWithParam<int> {};

TEST_P(PolyRectifyMapFixed, HoldThirtySecondsOfAPixel) {
  const Maps floats = polyMaps(zeroTables(), kRotation, kP);
  Maps expected;
  cv::convertMaps(floats.first, floats.second, expected.first, expected.second, CV_16SC2);
  const Maps fixed = polyMaps(zeroTables(), kRotation, kP, GetParam());
  ASSERT_EQ(fixed.first.type(), CV_16SC2);
  ASSERT_EQ(fixed.second.type(), CV_16UC1);
  // A value on a half may round the other way once narrowed: compare in 1/32 pixels.
  for (int row = 0; row < kSize.height; ++row) {
    for (int column = 0; column < kSize.width; ++column) {
      const auto at = [&](const Maps& maps, int axis) {
        const int remainder = maps.second.at<ushort>(row, column);
        return maps.first.at<cv::Vec2s>(row, column)[axis] * 32 + (axis == 0 ? remainder % 32 : remainder / 32);
      };
      ASSERT_LE(std::abs(at(fixed, 0) - at(expected, 0)), 1);
      ASSERT_LE(std::abs(at(fixed, 1) - at(expected, 1)), 1);
    }
  }
}

TEST_P(PolyRectifyMapFixed, ByHand) {
  // K maps (j, i) to (0.5 j + 10.25, 0.25 i - 7.28125), all exact: at row 2, column 3 that is (11.75, -6.78125).
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 0.5, 0, 10.25, 0, 0.25, -7.28125, 0, 0, 1);
  const Maps maps = polyMaps(zeroTables(), cv::Mat(), cv::Mat(), GetParam(), K);
  EXPECT_EQ(maps.first.at<cv::Vec2s>(2, 3), cv::Vec2s(11, -7));
  // 0.75 * 32 = 24; -6.78125 = -7 + 7 / 32.
  EXPECT_EQ(maps.second.at<ushort>(2, 3), 7 * 32 + 24);
}

TEST_P(PolyRectifyMapFixed, WhatIsInfiniteStaysOutsideOfTheImage) {
  const cv::Mat half_turn = (cv::Mat_<double>(3, 3) << -1, 0, 0, 0, 1, 0, 0, 0, -1);
  const Maps maps = polyMaps(zeroTables(), half_turn, cv::Mat(), GetParam());
  EXPECT_EQ(maps.first.at<cv::Vec2s>(2, 3), cv::Vec2s(32767, -32768));
}

INSTANTIATE_TEST_SUITE_P(Types, PolyRectifyMapFixed, testing::Values(CV_16SC2, 0, -1));

TEST(PolyRectifyMap, AnyOtherMapTypeThrows) {
  EXPECT_THROW(polyMaps(zeroTables(), cv::Mat(), kP, CV_32FC2), cv::Exception);
  EXPECT_THROW(polyMaps(zeroTables(), cv::Mat(), kP, CV_8SC1), cv::Exception);
}

}  // namespace
