#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "diagnose/causes/AlikeErrors.h"
#include "diagnose/causes/CauseChoice.h"

/// What the row differences of a set come to, in the units of `Misalignment`.
struct FoundCauses {
  CauseChoice choice;
  Misalignment values{};  ///< 0 for what is not named.
  Misalignment sds{};     ///< Standard errors; of all causes, named or not.
  /// Of each cause in the way from the squared rows before to those after: its Shapley value (Shapley 1953).
  std::array<double, kCauses> shares{};
  /// What a cause of a group would be if it were the only one of it; none where it can't be the only one.
  std::array<std::optional<double>, kCauses> alone{};
  double rows_before = 0.0;  ///< Mean absolute row differences, pixels.
  double rows_after = 0.0;
  std::size_t outliers = 0;  ///< Dots that the fit left out.
  double kept_before = 0.0;  ///< Mean absolute row differences of the others.
  double kept_after = 0.0;
  double spread_after = 0.0;  ///< Root mean square of those that are no outliers.
  AlikeErrors alike;          ///< Of what remains.
};

/// Precondition: at least `kFewestDots`.
FoundCauses findCauses(const RowDifferences& differences, const Misalignment& expected);

/// Fewer dots say nothing of eight causes and their noise.
inline constexpr std::size_t kFewestDots = 20;
