#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

#include "store/results/JsonCursor.h"

namespace polarline::results {

/// A cursor that takes objects by their keys: what is read of an object stands in one list.
class KeyedReader : public JsonCursor {
 public:
  using JsonCursor::JsonCursor;

  enum class Need : std::uint8_t { kWanted, kMayMiss };
  struct Key {
    const char* name;
    std::function<void()> read;
    Need need = Need::kWanted;
  };
  /// Takes an object: each of the keys by its call, others are passed over. One that is missing or stands twice throws.
  /// @param what Where the object stands, for messages: "set." or empty.
  void members(const char* what, std::initializer_list<Key> keys);

  std::int64_t whole();
  std::optional<std::int64_t> wholeIfAny();
  std::string oneOf(std::initializer_list<const char*> words);

  /// Calls that take a value into a variable that outlives them.
  std::function<void()> into(std::string& value) {
    return [this, &value] { value = text(); };
  }
  std::function<void()> into(double& value) {
    return [this, &value] { value = number(); };
  }
  std::function<void()> into(std::int64_t& value) {
    return [this, &value] { value = whole(); };
  }
  std::function<void()> into(std::optional<std::int64_t>& value) {
    return [this, &value] { value = wholeIfAny(); };
  }
  std::function<void()> into(bool& value) {
    return [this, &value] { value = truth(); };
  }
};

}  // namespace polarline::results
