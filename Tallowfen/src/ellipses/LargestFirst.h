#pragma once

#include <algorithm>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// Sorts by `semi_a` from the largest down; equal ones keep their order.
inline void sortLargestFirst(std::vector<Ellipse>& ellipses) {
  std::stable_sort(ellipses.begin(), ellipses.end(),
                   [](const Ellipse& a, const Ellipse& b) { return a.semi_a > b.semi_a; });
}

}  // namespace kestrune
