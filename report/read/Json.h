#pragma once

#include <limits>
#include <nlohmann/json.hpp>

namespace polarline {

/// A document with its keys in the order in which they stand there.
using Json = nlohmann::ordered_json;

/// Not a number where there is none.
inline double numberOf(const Json& json) {
  return json.is_number() ? json.get<double>() : std::numeric_limits<double>::quiet_NaN();
}

}  // namespace polarline
