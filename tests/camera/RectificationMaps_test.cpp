#include "camera/RectificationMaps.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <opencv2/calib3d.hpp>
#include <opencv2/imgproc.hpp>
#include <random>

#include "Near.h"
#include "StereoFixture.h"

namespace {

const stereo::Cameras& cameras() {
  static const stereo::Cameras kCameras;
  return kCameras;
}

constexpr std::array<LensModel, 4> kModels = {LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye,
                                              LensModel::kPoly};

RectificationMaps mapsOf(LensModel model, float f_scale) {
  return rectificationMaps(cameras().settings(f_scale), stereo::matrices(model), stereo::kSize, model);
}

double interpolated(const cv::Mat& map, const cv::Point2d& at) {
  const int column = static_cast<int>(std::floor(at.x));
  const int row = static_cast<int>(std::floor(at.y));
  const double x = at.x - column;
  const double y = at.y - row;
  return (1 - y) * ((1 - x) * map.at<float>(row, column) + x * map.at<float>(row, column + 1)) +
         y * ((1 - x) * map.at<float>(row + 1, column) + x * map.at<float>(row + 1, column + 1));
}

bool isInside(const cv::Point2d& at) {
  return at.x >= 0 && at.y >= 0 && at.x < stereo::kSize.width - 1 && at.y < stereo::kSize.height - 1;
}

/// The virtual pixel whose map leads to the raw one; false when it lies outside.
bool virtualPixel(const WarpMaps& maps, const cv::Point2d& pixel_raw, cv::Point2d& at) {
  at = pixel_raw;
  for (int step = 0; step < 60; ++step) {
    if (!isInside(at)) return false;
    at += pixel_raw - cv::Point2d(interpolated(maps.columns, at), interpolated(maps.rows, at));
  }
  return isInside(at);
}

cv::Point2d rawPixel(LensModel model, const CameraFloats& camera, const cv::Vec3d& point) {
  const cv::Point2d raw = stereo::raw(model, camera, {point[0] / point[2], point[1] / point[2]});
  return {camera.fx * raw.x + camera.cx, camera.fy * raw.y + camera.cy};
}

struct ModelCase {
  LensModel model;
  float f_scale;
};
class RectificationMapsModels : public testing::TestWithParam<ModelCase> {};

TEST_P(RectificationMapsModels, ImagesOfAPointShareARowAndQGivesItsDistance) {
  const auto [model, f_scale] = GetParam();
  const RectificationMaps maps = mapsOf(model, f_scale);
  const StereoMatrices pair = stereo::matrices(model);
  std::mt19937 random(5);
  std::uniform_real_distribution<double> uniform(-1.0, 1.0);
  int seen = 0;
  for (int n = 0; n < 400; ++n) {
    const double depth = 1500 + 500 * uniform(random);
    const cv::Vec3d point_left(0.4 * depth * uniform(random), 0.3 * depth * uniform(random), depth);
    const cv::Vec3d point_right = cv::Matx33d(pair.R) * point_left + cv::Vec3d(pair.T);
    cv::Point2d left;
    cv::Point2d right;
    if (!virtualPixel(maps.left, rawPixel(model, stereo::kLeft, point_left), left)) continue;
    if (!virtualPixel(maps.right, rawPixel(model, stereo::kRight, point_right), right)) continue;
    ++seen;
    EXPECT_NEAR(left.y, right.y, 0.005);
    const cv::Vec4d h = cv::Matx44d(maps.Q) * cv::Vec4d(left.x, left.y, left.x - right.x, 1);
    EXPECT_NEAR(cv::norm(cv::Vec3d(h[0], h[1], h[2]) / h[3]), cv::norm(point_left), 0.001 * depth);
  }
  EXPECT_GT(seen, 150);
}

INSTANTIATE_TEST_SUITE_P(Each, RectificationMapsModels,
                         testing::Values(ModelCase{LensModel::kBrownFive, 1.0F}, ModelCase{LensModel::kBrownFive, 0.9F},
                                         ModelCase{LensModel::kBrownEight, 1.0F},
                                         ModelCase{LensModel::kBrownEight, 0.9F}, ModelCase{LensModel::kFisheye, 1.0F},
                                         ModelCase{LensModel::kFisheye, 0.9F}, ModelCase{LensModel::kPoly, 1.0F},
                                         ModelCase{LensModel::kPoly, 0.9F}));

cv::Mat librarysQ(LensModel model) {
  const StereoMatrices pair = stereo::matrices(model);
  cv::Mat R1, R2, P1, P2, Q;
  cv::stereoRectify(pair.K1, pair.D1, pair.K2, pair.D2, stereo::kSize, pair.R, pair.T, R1, R2, P1, P2, Q, 1024, -1.0,
                    cv::Size(0, 0));
  return Q;
}

class RectificationMapsBrownModels : public testing::TestWithParam<LensModel> {};

TEST_P(RectificationMapsBrownModels, AScaleOfExactlyOneIsTheLibrarysOwnRectification) {
  EXPECT_EQ(distanceOf(mapsOf(GetParam(), 1.0F).Q, librarysQ(GetParam())), 0.0);
}

TEST_P(RectificationMapsBrownModels, AnyScaleNextToOneTakesTheScaledMethod) {
  // The larger focal length of the left camera is 305 and of the right 301, each over its own aspect: 301 * 301 / 296
  // is the smaller.
  const double f = 301.0 * 301.0 / 296.0;
  for (const float scale : {std::nextafter(1.0F, 0.0F), std::nextafter(1.0F, 2.0F)}) {
    const cv::Mat Q = mapsOf(GetParam(), scale).Q;
    EXPECT_NEAR(Q.at<double>(2, 3), f, 1e-3);
    EXPECT_GT(std::abs(Q.at<double>(2, 3) - librarysQ(GetParam()).at<double>(2, 3)), 1.0);
    EXPECT_GT(std::abs(Q.at<double>(0, 3) - librarysQ(GetParam()).at<double>(0, 3)), 0.1);
  }
}

INSTANTIATE_TEST_SUITE_P(FiveAndEight, RectificationMapsBrownModels,
                         testing::Values(LensModel::kBrownFive, LensModel::kBrownEight));

class RectificationMapsScaledModels : public testing::TestWithParam<LensModel> {};

TEST_P(RectificationMapsScaledModels, AScaleOfTwoDoublesTheLargerFocalLength) {
  const double f = 301.0 * 301.0 / 296.0;
  EXPECT_NEAR(mapsOf(GetParam(), 2.0F).Q.at<double>(2, 3), 2 * f, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(All, RectificationMapsScaledModels, testing::ValuesIn(kModels));

TEST(RectificationMaps, FisheyeAndPolyTakeTheScaledMethodAtOneToo) {
  for (const LensModel model : {LensModel::kFisheye, LensModel::kPoly}) {
    EXPECT_NEAR(mapsOf(model, 1.0F).Q.at<double>(2, 3), 301.0 * 301.0 / 296.0, 1e-9);
  }
}

TEST(RectificationMaps, EachSideOfAPolyPairHasItsOwnCamera) {
  const stereo::Cameras& both = cameras();
  const RectificationSettings swapped{1.0F, 0, both.right, both.left};
  const RectificationMaps maps =
      rectificationMaps(swapped, stereo::matrices(LensModel::kPoly), stereo::kSize, LensModel::kPoly);
  EXPECT_GT(distanceOf(maps.left.columns, mapsOf(LensModel::kPoly, 1.0F).left.columns), 0.1);
  EXPECT_GT(distanceOf(maps.right.columns, mapsOf(LensModel::kPoly, 1.0F).right.columns), 0.1);
}

TEST(RectificationMaps, AreFloatsOfTheImagesSize) {
  for (const LensModel model : kModels) {
    const RectificationMaps maps = mapsOf(model, 0.9F);
    for (const cv::Mat& map : {maps.left.columns, maps.left.rows, maps.right.columns, maps.right.rows}) {
      EXPECT_EQ(map.type(), CV_32FC1);
      EXPECT_EQ(map.size(), stereo::kSize);
    }
  }
}

}  // namespace
