#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "check/init/NameKeys.h"

namespace init {

/// Pairs whose numbers are near.
struct StampMatch {
  std::vector<std::pair<std::size_t, std::size_t>> pairs;
  std::uint64_t spacing = 0;     ///< The least one of two neighbours of a side.
  std::uint64_t difference = 0;  ///< The largest one of two partners.
  bool long_numbers = false;     ///< Of ten digits or more, which nobody counts up to: time stamps.
};

/// Pairs by the last piece of the keys as a number of up to 19 digits, all pieces before it being equal: partners
/// differ by less than half the least spacing of either side, so that nobody has two. No pairs where there is no
/// spacing or where a last piece is no such number.
StampMatch matchStamps(const KeyReading& reading);

}  // namespace init
