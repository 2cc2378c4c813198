#include "check/init/BaselineCheck.h"

#include <gtest/gtest.h>

namespace {

/// Two pinholes of 600 pixels side by side, 60 units apart, that look straight at a board 1000 units away.
class BaselineCheck : public testing::Test {
 protected:
  BaselineCheck() {
    calibration_.left = calibration_.right = {{640, 480}, 600, 600, 320, 240, {}, 0, 0};
    calibration_.tx = -60;
    for (int id = 0; id < 63; ++id) {
      const double x = id % 9 * 20.0 - 80.0;
      const double y = id / 9 * 20.0 - 60.0;
      left_.dots[id] = {320 + 0.6 * x, 240 + 0.6 * y};
      right_.dots[id] = {320 + 0.6 * (x - 60), 240 + 0.6 * y};
    }
  }
  std::string code() const {
    const auto warnings =
        init::judgeBaseline(calibration_, polarline::parseBoard("dots:9x7:20:inner=5x5"), left_, right_);
    return warnings.empty() ? "" : warnings[0].code;
  }

  polarline::Calibration calibration_;
  init::SeenBoard left_;
  init::SeenBoard right_;
};

TEST_F(BaselineCheck, TheTrueBaselineSaysNothing) { EXPECT_EQ(code(), ""); }

TEST_F(BaselineCheck, AFewPercentSayNothing) {
  calibration_.tx = -50;
  EXPECT_EQ(code(), "");
}

TEST_F(BaselineCheck, MetresForMillimetresAreTold) {
  calibration_.tx = -0.06;
  const auto warnings =
      init::judgeBaseline(calibration_, polarline::parseBoard("dots:9x7:20:inner=5x5"), left_, right_);
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "baseline_unit");
  EXPECT_EQ(warnings[0].text,
            "The calibration puts the cameras 0.06 apart, but the pictures show them about 60 board units apart, 1000 "
            "times as far");
}

TEST_F(BaselineCheck, ABaselineOfNothingIsTold) {
  calibration_.tx = 0;
  EXPECT_EQ(code(), "baseline_unit");
}

TEST_F(BaselineCheck, ExchangedSidesAreTold) {
  std::swap(left_, right_);
  EXPECT_EQ(code(), "sides_exchanged");
}

TEST_F(BaselineCheck, TooFewDotsSayNothing) {
  calibration_.tx = -0.06;
  while (left_.dots.size() > 19) left_.dots.erase(left_.dots.begin());
  EXPECT_EQ(code(), "");
}

}  // namespace
