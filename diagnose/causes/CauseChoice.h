#pragma once

#include <array>
#include <vector>

#include "diagnose/causes/RowFit.h"

/// Which causes the rows ask for.
struct CauseChoice {
  CauseSet named;                    ///< All that are to be told, those of groups included.
  std::array<int, kCauses> group{};  ///< 0: told apart from all others; else the same for those that are not.
};

/// From a fit of all causes. The fewest that leave no more than the others would explain by chance are needed; a needed
/// one that is larger than three standard errors only if others are not there makes a group with these.
CauseChoice chooseCauses(const RowFit& all);

/// Squared standard errors that a cause must explain to be told: chance brings one of eight as far in one set of 200.
inline constexpr double kPriceOfACause = 12.0;

/// The solution with some causes only, near that with all.
CauseVector sizesOf(const RowFit& all, const CauseSet& causes);

/// What a set of causes costs: how much worse it fits than all of them, in squared standard errors.
double excessOf(const RowFit& all, const CauseSet& causes);
