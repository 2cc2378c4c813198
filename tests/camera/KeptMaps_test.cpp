#include "camera/KeptMaps.h"

#include <gtest/gtest.h>

#include <functional>

#include "StereoFixture.h"

namespace {

bool equal(const cv::Mat& a, const cv::Mat& b) { return cv::norm(a, b, cv::NORM_INF) == 0.0; }

bool equal(const WarpMaps& a, const WarpMaps& b) { return equal(a.columns, b.columns) && equal(a.rows, b.rows); }

bool equal(const RectificationMaps& a, const RectificationMaps& b) {
  return equal(a.left, b.left) && equal(a.right, b.right) && equal(a.Q, b.Q);
}

/// What the maps of a pair are asked with.
struct Asked {
  stereo::Cameras objects;
  RectificationSettings settings = objects.settings(0.9F);
  LensModel model = LensModel::kBrownFive;
  StereoMatrices matrices = stereo::matrices(model);
  cv::Size size = stereo::kSize;

  RectificationMaps anew() const { return rectificationMaps(settings, matrices, size, model); }
};

TEST(KeptMaps, PairsOfOneCameraShareTheirMaps) {
  const Asked asked;
  KeptMaps kept;
  for (int pair = 0; pair < 3; ++pair) {
    // Each pair comes with matrices of its own making.
    const RectificationMaps& maps = kept.of(asked.settings, stereo::matrices(asked.model), asked.size, asked.model);
    EXPECT_TRUE(equal(maps, asked.anew()));
  }
  EXPECT_EQ(kept.made(), 1U);
}

struct Change {
  const char* name;
  std::function<void(Asked&)> make;
};
class KeptMapsChange : public testing::TestWithParam<Change> {};

TEST_P(KeptMapsChange, MakesThemAnew) {
  Asked asked;
  KeptMaps kept;
  const RectificationMaps before = kept.of(asked.settings, asked.matrices, asked.size, asked.model);
  GetParam().make(asked);
  const RectificationMaps& maps = kept.of(asked.settings, asked.matrices, asked.size, asked.model);
  EXPECT_TRUE(equal(maps, asked.anew()));
  EXPECT_FALSE(maps.left.columns.size() == before.left.columns.size() && equal(maps, before));
  EXPECT_EQ(kept.made(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Each, KeptMapsChange,
                         testing::Values(
                             // Where the matrix is, as the crop of a run does it.
                             Change{"LeftMatrix", [](Asked& asked) { asked.matrices.K1.at<double>(0, 2) -= 4; }},
                             Change{"RightMatrix", [](Asked& asked) { asked.matrices.K2.at<double>(1, 2) -= 4; }},
                             Change{"LeftLens", [](Asked& asked) { asked.matrices.D1.at<double>(0) += 0.01; }},
                             Change{"RightLens", [](Asked& asked) { asked.matrices.D2.at<double>(0) += 0.01; }},
                             Change{"Rotation",
                                    [](Asked& asked) {
                                      asked.matrices.R = EulerToRotation({0.03F, 0.06F, -0.03F});
                                    }},
                             Change{"Translation", [](Asked& asked) { asked.matrices.T.at<double>(1) += 1; }},
                             Change{"Size", [](Asked& asked) { asked.size.width -= 8; }},
                             Change{"FocalScale", [](Asked& asked) { asked.settings.f_scale = 1.0F; }},
                             Change{"Model",
                                    [](Asked& asked) {
                                      asked.model = LensModel::kPoly;
                                      asked.matrices = stereo::matrices(asked.model);
                                    }}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(KeptMaps, FailureIsNotKept) {
  Asked asked;
  KeptMaps kept;
  EXPECT_THROW(kept.of(asked.settings, {}, asked.size, asked.model), cv::Exception);
  EXPECT_THROW(kept.of(asked.settings, {}, asked.size, asked.model), cv::Exception);
  EXPECT_TRUE(equal(kept.of(asked.settings, asked.matrices, asked.size, asked.model), asked.anew()));
}

}  // namespace
