#pragma once

#include <array>
#include <cstddef>

namespace refine {

/// Pixels that are worked on side by side: loops over them have a length that compilers know, and no two of such arrays
/// lie in the same place, so that one instruction works on several pixels.
constexpr std::size_t kLanes = 40;
using Lanes = std::array<float, kLanes>;

/// The values of a function by lane.
template <typename ValueOf>
Lanes lanesOf(const ValueOf& value_of) {
  Lanes values;
  for (std::size_t k = 0; k < kLanes; ++k) values[k] = value_of(k);
  return values;
}

inline void store(const Lanes& values, float* to) {
  for (std::size_t k = 0; k < kLanes; ++k) to[k] = values[k];
}

}  // namespace refine
