#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetSets.h"
#include "store/results/Sqlite.h"

namespace polarline::fleet {

/// What the sets say under one key.
struct MetadataColumn {
  std::string key;
  std::vector<std::optional<std::string>>
      values;                        ///< Distinct, in natural order; none, if some set says nothing, last.
  std::vector<std::int32_t> of_set;  ///< An index of `values` for each set.
};

/// A key by which sets are not filtered.
struct OtherKey {
  std::string key;
  std::size_t values = 0;
};

/// Station and model, with which the columns begin.
constexpr std::size_t kFixedKeys = 2;

/// The metadata of all sets: first station and model, which are there even when no set has them, then the keys by which
/// one may filter, those of the fewest values first.
struct FleetMetadata {
  std::vector<MetadataColumn> columns;
  std::vector<OtherKey> others;
};

/// Reads them; serial and time are no keys to filter by, nor is one of a single value or of more than 24.
FleetMetadata readFleetMetadata(const sqlite::Database& database, const FleetSets& sets);

}  // namespace polarline::fleet
