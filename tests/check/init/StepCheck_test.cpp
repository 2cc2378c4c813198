#include "check/init/StepCheck.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::HasSubstr;

/// Two pinholes of 600 pixels side by side, 60 units apart, before a board of 9 x 7 dots that is turned by 30 degrees
/// about the column through its middle, which is 1000 units away. Depths differ, so that the poses tell a scale, too.
class StepCheck : public testing::Test {
 protected:
  StepCheck() {
    calibration_.left = calibration_.right = {{640, 480}, 600, 600, 320, 240, {}, 0, 0};
    calibration_.tx = -60;
    see(20, 20);
  }
  void see(double step, double step_y) {
    for (int id = 0; id < 63; ++id) {
      const double along = (id % 9 - 4) * step;
      const double x = along * 0.8660254037844387;
      const int row = id / 9;
      const double y = (row - 3) * step_y;
      const double z = 1000.0 + along * 0.5;
      left_.dots[id] = {320 + 600 * x / z, 240 + 600 * y / z};
      right_.dots[id] = {320 + 600 * (x - 60) / z, 240 + 600 * y / z};
    }
  }
  std::string told(const std::string& board = "dots:9x7:20:inner=5x5") const {
    const auto warnings = init::judgeStep(calibration_, polarline::parseBoard(board), left_, right_);
    if (warnings.empty()) return "";
    EXPECT_EQ(warnings.size(), 1U);
    EXPECT_EQ(warnings[0].pair, 0);
    return warnings[0].code + ": " + warnings[0].text;
  }

  polarline::Calibration calibration_;
  init::SeenBoard left_, right_;
};

TEST_F(StepCheck, TheTrueStepSaysNothing) { EXPECT_EQ(told(), ""); }

TEST_F(StepCheck, LessThanAPercentSaysNothing) { EXPECT_EQ(told("dots:9x7:20.15:inner=5x5"), ""); }

TEST_F(StepCheck, AWrongStepIsToldWithBoth) {
  EXPECT_THAT(told("dots:9x7:21:inner=5x5"),
              HasSubstr("board_step: By the calibration the dots of the first pair stand 20 apart along a row and 20 "
                        "down a column, and the board is described with 21 and 21"));
}

TEST_F(StepCheck, RowsOfAnotherStepAreTold) {
  see(20, 22);
  EXPECT_THAT(told(), HasSubstr("stand 20 apart along a row and 22 down a column"));
  EXPECT_EQ(told("dots:9x7:20:step_y=22:inner=5x5"), "");
}

TEST_F(StepCheck, ATurnedCameraIsNoWrongStep) {
  // Its dots come out nearer by some percent, and with them their distances; the poses know better.
  for (const double turn : {-0.002, -0.001, 0.001, 0.002}) {
    calibration_.ry = turn;
    EXPECT_EQ(told(), "") << turn;
  }
}

TEST_F(StepCheck, TooFewDotsSayNothing) {
  while (left_.dots.size() > 19) left_.dots.erase(left_.dots.begin());
  EXPECT_EQ(told("dots:9x7:21:inner=5x5"), "");
}

TEST_F(StepCheck, IdsBeyondTheBoardAreNoDots) {
  left_.dots[-1] = left_.dots[900] = {10, 10};
  right_.dots[-1] = right_.dots[900] = {300, 400};
  EXPECT_EQ(told(), "");
}

}  // namespace
