#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/fleet/LimitsSeen.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// Which number of a set, over the pairs that measured a figure.
enum class MeasureValue : std::uint8_t { kMax, kMin, kAbs, kMean, kSd };

/// "max", "min", "abs", "mean" or "sd".
const char* nameOf(MeasureValue value);

/// What is followed: one number a set.
struct Measure {
  std::string name;  ///< "tri_dis[0]", "refined.dy_means"; of a list as a whole "tri_dis".
  MeasureValue value = MeasureValue::kMean;
  std::vector<std::size_t> rules;  ///< The limits on it.
};

/// What the page follows, at most `kMostMeasures`: what limits judge, those that most sets have first, then the main
/// figures that sets have.
/// @param left_out How many that limits judge there was no room for.
std::vector<Measure> chooseMeasures(const sqlite::Database& database, const LimitsSeen& limits, std::size_t& left_out);
inline constexpr std::size_t kMostMeasures = 8;

/// Unit of a figure, "pixels"; empty for a bare number.
std::string unitOf(const std::string& name);

/// Of a group: the bounds that its newest set has.
struct Bounds {
  std::optional<double> lower, upper;
};

/// The bounds of a measure in every group, and whether they changed within one.
struct GroupBounds {
  std::vector<Bounds> of_group;
  bool changed = false;
};
GroupBounds boundsOf(const Measure& measure, const LimitsSeen& limits, const FleetSets& sets, std::size_t groups);

}  // namespace polarline::fleet
