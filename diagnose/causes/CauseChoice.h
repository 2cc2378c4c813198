#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "diagnose/causes/RowFit.h"

/// Which causes the rows ask for.
struct CauseChoice {
  CauseSet named;                    ///< All that are to be told, those of groups included.
  std::array<int, kCauses> group{};  ///< 0: told apart from all others; else the same for those that are not.
};

/// From a fit of all causes. The fewest that leave no more than the others would explain by chance are needed, by the
/// same price for each, as in the criteria of Akaike (1974) and Schwarz (1978), over all 256 sets of them; a needed one
/// that would be told as larger than three standard errors only if others were not there makes a group with these.
CauseChoice chooseCauses(const RowFit& all);

/// Squared standard errors that a cause must explain to be told. The height is ours: a square of a normal error is
/// above 12 in one of 1900 cases, so that chance brings one of eight causes as far in about one set of 200; the 2 of
/// Akaike would tell a false cause of most aligned sets.
inline constexpr double kPriceOfACause = 12.0;

/// Of a cause, if some others are known not to be there; in squares of its expected size.
double varianceOf(const RowFit& all, std::size_t cause, const CauseSet& absent);

/// The solution with some causes only, near that with all.
CauseVector sizesOf(const RowFit& all, const CauseSet& causes);

/// What a set of causes costs: how much worse it fits than all of them, in squared standard errors.
double excessOf(const RowFit& all, const CauseSet& causes);
