#pragma once

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
  int rows_too_large = 0;         ///< Sets whose rows after are above 1.2 times those of the true cameras.
  double seconds = 0.0;           ///< Processor time of all diagnoses.
};

/// Of the sets of a kind from number `first` on.
CauseCoverage coverageOf(const SetKind& kind, std::uint64_t sets, std::uint64_t first = 0);

}  // namespace causes
