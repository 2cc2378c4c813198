#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "MorvenKit/Ellipse.h"

namespace kestrune {

/// A detected ellipse and a detected point as all of the board's recognition holds them.
using Ellipse = morvenkit::Ellipse<double>;
using CtrlPoint = morvenkit::CtrlPoint<double>;

/// The parts of a point's id: below the layer, the place's index on the board, row * columns + column, in 16 bits.
constexpr std::int32_t boardIndexOf(std::int32_t id) { return id & 0xffff; }
constexpr std::int32_t layerOf(std::int32_t id) { return id >> 16 & 0xff; }
/// The id of a place. Meant: an index beyond 16 bits is cut.
constexpr std::int32_t idOf(std::int32_t layer, std::int64_t index) {
  return layer * 0x10000 + static_cast<std::int32_t>(index & 0xffff);
}

/// Sorts by `semi_a` from the largest down; equal ones keep their order.
inline void sortLargestFirst(std::vector<Ellipse>& ellipses) {
  std::stable_sort(ellipses.begin(), ellipses.end(),
                   [](const Ellipse& a, const Ellipse& b) { return a.semi_a > b.semi_a; });
}

}  // namespace kestrune
