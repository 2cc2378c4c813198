#pragma once

#include <cstddef>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>

namespace polarline::fleet {

/// A document with its keys in the order in which they are written.
using FleetJson = nlohmann::ordered_json;

/// A number to seven digits, which is what a page can show; null for what is none.
FleetJson shortNumber(double value);
FleetJson shortNumber(const std::optional<double>& value);

/// The fields of records as lists, one a field: `columns(rows, "cell", &Row::cell, "sets", &Row::sets)`.
template <typename Rows>
void addColumns(FleetJson& /*json*/, const Rows& /*rows*/) {}

template <typename Rows, typename Field, typename... Rest>
void addColumns(FleetJson& json, const Rows& rows, const char* name, Field field, Rest... rest) {
  FleetJson& list = json[name] = FleetJson::array();
  for (const auto& row : rows) {
    if constexpr (std::is_same_v<std::decay_t<decltype(row.*field)>, double>)
      list.push_back(shortNumber(row.*field));
    else
      list.push_back(row.*field);
  }
  addColumns(json, rows, rest...);
}

}  // namespace polarline::fleet
