#pragma once

#include <cmath>
#include <cstdint>

#include "tools/causes/SimulatedSet.h"

namespace causes {

/// How the causes that are named in many sets compare with those that are there.
struct CauseCoverage {
  int sets = 0;
  int named = 0;
  int in_groups = 0;              ///< Of the named ones.
  int beyond_three = 0;           ///< Off by more than three of their standard errors.
  int unsure_alone = 0;           ///< Told by themselves and yet not larger than three standard errors.
  int sets_with_a_false_one = 0;  ///< With one that is not there and yet larger than three standard errors.
  int missed = 0;                 ///< There, but not named.
  double squared_errors = 0.0;    ///< Of the named ones, by their standard errors.
  int rows_too_large =
      0;  ///< Sets whose rows by the corrected calibration are above 1.2 times those of the true cameras.
  double seconds = 0.0;  ///< Processor time of all diagnoses.

  /// Errors by their standard errors, root mean square: 1 where these are the scatter, less where they are wider.
  double errorByTold() const { return named == 0 ? 0.0 : std::sqrt(squared_errors / named); }
};

/// Of the sets of a kind from number `first` on.
CauseCoverage coverageOf(const SetKind& kind, std::uint64_t sets, std::uint64_t first = 0);

}  // namespace causes
