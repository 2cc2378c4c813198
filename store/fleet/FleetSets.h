#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// How a set ended, as a yield counts it.
enum class Ending : std::uint8_t { kPassed, kFailed, kUnjudged, kError };

struct FleetSet {
  std::int64_t id = 0;    ///< In the results.
  std::int64_t time = 0;  ///< Seconds since 1970.
  Ending ending = Ending::kError;
  bool is_diagnosed = false;
  std::int64_t pairs = 0, finished = 0;
  int group = -1;  ///< -1: left out.
  int cell = -1;
};

/// The sets of the results, by time and then by what tells them apart.
class FleetSets {
 public:
  explicit FleetSets(const sqlite::Database& database);

  std::vector<FleetSet>& all() { return sets_; }
  const std::vector<FleetSet>& all() const { return sets_; }
  std::size_t size() const { return sets_.size(); }
  FleetSet& at(std::size_t place) { return sets_[place]; }
  const FleetSet& at(std::size_t place) const { return sets_[place]; }
  /// The place of a set by its number in the results.
  std::size_t placeOf(std::int64_t id) const { return places_.at(static_cast<std::size_t>(id)); }
  std::size_t withoutTime() const { return without_time_; }

 private:
  std::vector<FleetSet> sets_;
  std::vector<std::size_t> places_;
  std::size_t without_time_ = 0;
};

}  // namespace polarline::fleet
