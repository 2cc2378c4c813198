#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace calibrations {

/// What a document holds, whatever its syntax: nothing, a text (numbers stay as they are written), a list or a map.
struct Value {
  enum class Kind : std::uint8_t { kNothing, kText, kList, kMap };

  Kind kind = Kind::kNothing;
  std::string text;
  std::vector<Value> items;       ///< Of a list or a map, in the order of the document.
  std::vector<std::string> keys;  ///< Of a map, as many as items, each once.

  /// Null where there is no such member, and in what is no map.
  const Value* member(const std::string& key) const;

  /// Values in it, itself included.
  std::size_t count() const;
};

}  // namespace calibrations
