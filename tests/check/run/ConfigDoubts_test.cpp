#include "check/run/ConfigDoubts.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

/// Whose K1 is not 0 in either camera, and one more of the right camera.
StereoCalibParams withCoefficient(std::size_t place) {
  StereoCalibParams calib;
  calib.left.intrinsics[4] = calib.right.intrinsics[4] = -0.1;
  calib.right.intrinsics.at(place) = 0.01;
  return calib;
}

struct Lens {
  int type;
  std::size_t place;   ///< Of the coefficient that is not 0: K1 to K6 from 4, P1 and P2 from 10.
  const char* unused;  ///< Empty: the model takes it.
};

class ConfigDoubtsOfTheLens : public testing::TestWithParam<Lens> {};

TEST_P(ConfigDoubtsOfTheLens, AreWhatItsModelDoesNotTake) {
  const auto& [type, place, unused] = GetParam();
  PolarInput polar;
  polar.config.type = type;
  polar.keys = {"type"};
  std::vector<Warning> warnings;
  warnOfLens("polar.txt", polar, "calib.json", withCoefficient(place), warnings);
  ASSERT_EQ(warnings.size(), *unused == '\0' ? 0U : 1U);
  if (warnings.empty()) return;
  EXPECT_EQ(warnings[0].code, "unused_coefficients");
  EXPECT_EQ(warnings[0].text, unused);
  EXPECT_FALSE(warnings[0].advice.empty());
}

INSTANTIATE_TEST_SUITE_P(All, ConfigDoubtsOfTheLens,
                         testing::Values(Lens{0, 6, ""}, Lens{0, 11, ""},
                                         Lens{0, 7, "calib.json: has K4, which type 0 (brown5) does not take"},
                                         Lens{0, 9, "calib.json: has K6, which type 0 (brown5) does not take"},
                                         Lens{1, 9, ""}, Lens{1, 11, ""}, Lens{2, 7, ""},
                                         Lens{2, 10, "calib.json: has P1, which type 2 (fisheye) does not take"},
                                         Lens{3, 9, ""}));

TEST(ConfigDoubts, BeginWithATypeThatIsNotSaid) {
  std::vector<Warning> warnings;
  warnOfLens("polar.txt", {}, "calib.json", withCoefficient(4), warnings);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "no_type");
  EXPECT_EQ(warnings[0].text, "polar.txt: has no type; the lens model brown5 is taken");
}

TEST(ConfigDoubts, AreOfAFileThatNamesNoEvaluation) {
  std::vector<Warning> warnings;
  PolarInput polar;
  polar.keys = {"type", "f_scale", "TriPoint1_ID"};
  warnOfNoEvaluation("polar.txt", polar, warnings);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "no_evaluation");
  polar.keys.insert("dy_bias_switch");  // Said, on or off.
  warnOfNoEvaluation("polar.txt", polar, warnings);
  EXPECT_EQ(warnings.size(), 1U);
}

struct Turn {
  int x_y;
  int rows_on;
  double tx;
  double ty;
  bool is_odd;
};

class ConfigDoubtsOfTheTurn : public testing::TestWithParam<Turn> {};

TEST_P(ConfigDoubtsOfTheTurn, AreOfCamerasSideBySide) {
  PolarInput polar;
  polar.config.x_y = GetParam().x_y;
  polar.config.dy_bias_switch = GetParam().rows_on;
  StereoCalibParams calib;
  calib.extrinsics[3] = GetParam().tx;
  calib.extrinsics[4] = GetParam().ty;
  std::vector<Warning> warnings;
  warnOfTurn("polar.txt", polar, calib, warnings);
  ASSERT_EQ(warnings.size(), GetParam().is_odd ? 1U : 0U);
  if (!GetParam().is_odd) return;
  EXPECT_EQ(warnings[0].code, "turned_rows");
  EXPECT_EQ(warnings[0].text, "polar.txt: x_y is 1, and the cameras stand side by side (TX -60, TY 1)");
}

INSTANTIATE_TEST_SUITE_P(All, ConfigDoubtsOfTheTurn,
                         testing::Values(Turn{1, 1, -60.0, 1.0, true}, Turn{0, 1, -60.0, 1.0, false},
                                         Turn{1, 0, -60.0, 1.0, false}, Turn{1, 1, 1.0, -60.0, false}));

}  // namespace
}  // namespace polarline
