#include "check/init/FocalScale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

/// Two equal fisheyes without distortion (radius = f * angle) side by side, whose rectified pictures are pinholes of
/// the same middle: a dot at angle a from it lies f * f_scale * tan(a) from it there.
class FocalScale : public testing::Test {
 protected:
  FocalScale() {
    calibration_.type = 2;
    calibration_.left = calibration_.right = {{1000, 1000}, 400, 400, 499.5, 499.5, {}, 0, 0};
    calibration_.tx = -60;
  }
  /// Sees one dot so many pixels right of the middle.
  init::FocalScale at(double pixels) const {
    init::SeenBoard seen;
    seen.dots[0] = {499.5 + pixels, 499.5};
    return init::chooseFocalScale(calibration_, {1000, 1000}, seen, seen);
  }

  polarline::Calibration calibration_;
};

TEST_F(FocalScale, IsOneWhereTheRectifiedPictureHoldsTheDots) {
  // 400 tan(0.7) = 337 of 500 - 20 pixels.
  EXPECT_EQ(at(0.7 * 400).value, 1.0);
  EXPECT_THAT(at(0.7 * 400).why, HasSubstr("hold every dot of the first pair"));
}

TEST_F(FocalScale, IsTheLargestThatHoldsThem) {
  // tan(1) = 1.557: 400 * 0.75 * 1.557 = 467 lies within 480, and 400 * 0.8 * 1.557 = 498 does not.
  EXPECT_DOUBLE_EQ(at(400).value, 0.75);
}

TEST_F(FocalScale, StaysOneWhereNoneHoldsThem) {
  // tan(1.4) = 5.8 needs 0.2.
  EXPECT_EQ(at(1.4 * 400).value, 1.0);
  EXPECT_THAT(at(1.4 * 400).why, HasSubstr("no smaller one makes room"));
}

TEST_F(FocalScale, StaysOneWithoutABoard) {
  const init::SeenBoard none;
  const auto chosen = init::chooseFocalScale(calibration_, {1000, 1000}, none, none);
  EXPECT_EQ(chosen.value, 1.0);
  EXPECT_THAT(chosen.why, HasSubstr("the board was not found"));
}

TEST_F(FocalScale, OfOtherLensesIsOneWithoutAWord) {
  calibration_.type = 0;
  EXPECT_EQ(at(400).value, 1.0);
  EXPECT_EQ(at(400).why, "");
}

}  // namespace
