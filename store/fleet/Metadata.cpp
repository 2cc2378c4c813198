#include "store/fleet/Metadata.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "store/fleet/NaturalOrder.h"

namespace polarline::fleet {
namespace {

constexpr std::size_t kMostValues = 24;
constexpr std::size_t kMostExtraKeys = 3;

/// The values of one key as they are met.
struct Met {
  std::unordered_map<std::string, std::int32_t> numbers;
  std::vector<std::string> values;
  std::vector<std::pair<std::size_t, std::int32_t>> of_sets;  ///< Places and numbers.

  std::size_t distinct(std::size_t sets) const { return values.size() + (of_sets.size() < sets ? 1 : 0); }
};

std::map<std::string, Met> readMet(const sqlite::Database& database, const FleetSets& sets) {
  std::map<std::string, Met> met{{"station", {}}, {"model", {}}};
  sqlite::Statement row(database, "SELECT set_id, key, value FROM metadata WHERE key NOT IN ('serial', 'time')");
  while (row.step()) {
    std::string value = row.text(2);
    if (value.empty()) continue;  // Says nothing.
    Met& of_key = met[row.text(1)];
    const auto [found, is_new] = of_key.numbers.emplace(value, static_cast<std::int32_t>(of_key.values.size()));
    if (is_new) of_key.values.push_back(std::move(value));
    of_key.of_sets.emplace_back(sets.placeOf(row.integer(0)), found->second);
  }
  return met;
}

MetadataColumn columnOf(const std::string& key, const Met& met, std::size_t sets) {
  std::vector<std::int32_t> order(met.values.size());
  std::iota(order.begin(), order.end(), 0);
  const auto value = [&](std::int32_t k) -> const std::string& { return met.values[static_cast<std::size_t>(k)]; };
  std::ranges::sort(order, [&](std::int32_t a, std::int32_t b) { return isBefore(value(a), value(b)); });
  MetadataColumn column{key, {}, {}};
  std::vector<std::int32_t> rank(order.size());
  for (const std::int32_t number : order) {
    rank[static_cast<std::size_t>(number)] = static_cast<std::int32_t>(column.values.size());
    column.values.emplace_back(value(number));
  }
  column.of_set.assign(sets, static_cast<std::int32_t>(column.values.size()));
  if (met.of_sets.size() < sets || column.values.empty()) column.values.emplace_back(std::nullopt);
  for (const auto& [place, number] : met.of_sets) column.of_set[place] = rank[static_cast<std::size_t>(number)];
  return column;
}

}  // namespace

FleetMetadata readFleetMetadata(const sqlite::Database& database, const FleetSets& sets) {
  const std::map<std::string, Met> met = readMet(database, sets);
  FleetMetadata metadata;
  for (const char* key : {"station", "model"}) metadata.columns.push_back(columnOf(key, met.at(key), sets.size()));

  std::vector<std::pair<std::size_t, std::string>> extra;
  for (const auto& [key, of_key] : met) {
    if (key == "station" || key == "model") continue;
    const std::size_t values = of_key.distinct(sets.size());
    if (values >= 2 && values <= kMostValues)
      extra.emplace_back(values, key);
    else
      metadata.others.push_back({key, values});
  }
  std::ranges::sort(extra);
  for (const auto& [values, key] : extra) {
    if (metadata.columns.size() < kFixedKeys + kMostExtraKeys)
      metadata.columns.push_back(columnOf(key, met.at(key), sets.size()));
    else
      metadata.others.push_back({key, values});
  }
  return metadata;
}

}  // namespace polarline::fleet
