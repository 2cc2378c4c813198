#include "calibrations/document/Value.h"

#include <algorithm>

namespace calibrations {

const Value* Value::member(const std::string& key) const {
  const auto found = std::ranges::find(keys, key);
  return found == keys.end() ? nullptr : &items[static_cast<std::size_t>(found - keys.begin())];
}

std::size_t Value::count() const {
  std::size_t sum = 1;
  for (const Value& item : items) sum += item.count();
  return sum;
}

}  // namespace calibrations
