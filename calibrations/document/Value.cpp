#include "calibrations/document/Value.h"

#include <algorithm>

namespace calibrations {

const Value* Value::member(const std::string& key) const {
  const auto found = std::ranges::find(members, key, [](const auto& each) -> const std::string& { return each.first; });
  return found == members.end() ? nullptr : &found->second;
}

std::size_t Value::count() const {
  std::size_t sum = 1;
  for (const Value& item : items) sum += item.count();
  for (const auto& [key, value] : members) sum += value.count();
  return sum;
}

}  // namespace calibrations
