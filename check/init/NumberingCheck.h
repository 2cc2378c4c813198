#pragma once

#include <vector>

#include "polarline/detect.h"
#include "polarline/warning.h"

namespace init {

/// What the numbers of the first pair's dots are worth: why there are none, or why they are those of other dots.
std::vector<polarline::Warning> judgeNumbering(const polarline::Detection& left, const polarline::Detection& right);

}  // namespace init
