#pragma once

#include <string>

#include "check/init/FirstPair.h"
#include "polarline/calibration.h"

namespace init {

/// The `f_scale` of a set.
struct FocalScale {
  double value = 1.0;
  std::string why;
};

/// For fisheyes the largest one, in steps of a twentieth and up to 1, with which the rectified pictures hold every dot
/// of the first pair and some room around them: a rectified picture of a fisheye spreads toward its rim, so that at 1
/// dots of a board that fills the pictures fall outside. With any other lens 1.
FocalScale chooseFocalScale(const polarline::Calibration& calibration, polarline::Size picture, const SeenBoard& left,
                            const SeenBoard& right);

}  // namespace init
