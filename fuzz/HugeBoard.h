#pragma once

#include <optional>

#include "Tallowfen/src/board/BoardModel.h"
#include "Tallowfen/src/board/TargetConfigReader.h"

namespace fuzzing {

/// Whether the board is lawful and so large that making its model, which is the same for all sizes, would take the time
/// of many inputs.
inline bool isHuge(const std::optional<kestrune::RingTargetConfig>& config) {
  constexpr std::size_t kQuick = 100000;
  if (!config) return false;
  const std::size_t dots = std::size_t{config->rows} * config->cols;
  return dots > kQuick && dots <= kestrune::kMostDots;
}

}  // namespace fuzzing
