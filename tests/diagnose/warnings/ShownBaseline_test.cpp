#include "diagnose/warnings/ShownBaseline.h"

#include <gtest/gtest.h>

#include <opencv2/calib3d.hpp>

namespace diagnose {
namespace {

TEST(ShownBaseline, IsTheWayFromLeftToRight) {
  cv::Matx33d turn;
  cv::Rodrigues(cv::Vec3d(0.1, -0.2, 0.05), turn);
  const CameraPose left{turn, {10.0, 20.0, 500.0}};
  cv::Matx33d between;
  cv::Rodrigues(cv::Vec3d(0.01, 0.02, -0.03), between);
  const cv::Vec3d way(-60.0, 1.0, 2.0);
  const CameraPose right{between * turn, between * left.T + way};  // X_right = R X_left + T.
  EXPECT_NEAR(cv::norm(shownBaseline(left, right) - way), 0.0, 1e-9);
}

struct Judged {
  cv::Vec3d shown;
  const char* code;
};
class ShownBaselineAgainst60 : public ::testing::TestWithParam<Judged> {};

TEST_P(ShownBaselineAgainst60, IsJudged) {
  const auto one = judgeBaseline(GetParam().shown, {-60.0, 0.0, 0.0}, 2);
  EXPECT_EQ(one ? one->code : "", GetParam().code);
  EXPECT_EQ(one ? one->pair : 2, 2);
}

INSTANTIATE_TEST_SUITE_P(Ways, ShownBaselineAgainst60,
                         ::testing::Values(Judged{{-60.0, 1.0, 2.0}, ""}, Judged{{-50.0, 0.0, 0.0}, ""},
                                           Judged{{-60000.0, 0.0, 0.0}, "baseline_unit"},
                                           Judged{{-0.06, 0.0, 0.0}, "baseline_unit"},
                                           Judged{{60.0, 0.0, 0.0}, "sides_exchanged"}, Judged{{0.0, 60.0, 0.0}, ""}));

TEST(ShownBaselineAgainstNothing, IsAnotherLength) {
  const auto one = judgeBaseline({-60.0, 0.0, 0.0}, {0.0, 0.0, 0.0}, 0);
  ASSERT_TRUE(one);
  EXPECT_EQ(one->code, "baseline_unit");
}

}  // namespace
}  // namespace diagnose
