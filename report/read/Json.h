#pragma once

#include <nlohmann/json.hpp>

namespace polarline {

/// A document with its keys in the order in which they stand there.
using Json = nlohmann::ordered_json;

}  // namespace polarline
