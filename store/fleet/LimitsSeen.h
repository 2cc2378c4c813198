#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetSets.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// What a limit's text says, as the results have it.
struct LimitRule {
  std::string text;
  std::string figure;     ///< With entry and "refined."; empty for a text that nobody could read.
  std::string statistic;  ///< "mean", "sd", "min", "max"; empty: of each pair.
  bool is_absolute = false;
  bool is_upper = false;
  double bound = 0.0;
  std::size_t sets = 0;  ///< That have it.
};

/// A limit of a set.
struct LimitSeen {
  std::size_t place = 0;  ///< Of the set.
  std::size_t rule = 0;
  double value = std::numeric_limits<double>::quiet_NaN();
  bool holds = false;
};

/// The limits of all sets.
struct LimitsSeen {
  std::vector<LimitRule> rules;
  std::vector<LimitSeen> all;  ///< Those of a set stand together.
};

LimitsSeen readLimitsSeen(const sqlite::Database& database, const FleetSets& sets);

/// How far a value is towards its bound or beyond it: 1 at the bound, more beyond, at most 1000, below 0 on the
/// other side of zero; none where nobody measured it or nobody could read the limit.
std::optional<double> timesOf(const LimitRule& rule, double value);

}  // namespace polarline::fleet
