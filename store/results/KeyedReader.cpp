#include "store/results/KeyedReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace polarline::results {

void KeyedReader::members(const char* what, std::initializer_list<Key> keys) {
  std::uint64_t seen = 0;
  object([&](std::string_view key) {
    const auto* const found = std::ranges::find_if(keys, [&](const Key& each) { return key == each.name; });
    if (found == keys.end()) return skip();
    const std::uint64_t bit = std::uint64_t{1} << static_cast<std::size_t>(found - keys.begin());
    if ((seen & bit) != 0) fault(fmt::format("{}{} stands there twice", what, key));
    seen |= bit;
    found->read();
  });
  for (const Key& each : keys) {
    if (each.need == Need::kWanted && (seen & 1U) == 0) fault(fmt::format("{}{} is missing", what, each.name));
    seen >>= 1U;
  }
}

std::int64_t KeyedReader::whole() {
  constexpr double kMost = 9007199254740992.0;  // Beyond it a double skips whole numbers.
  const double value = number();
  if (!(std::abs(value) <= kMost) || std::floor(value) != value) fault("a whole number was wanted");
  return static_cast<std::int64_t>(value);
}

std::optional<std::int64_t> KeyedReader::wholeIfAny() {
  if (null()) return std::nullopt;
  return whole();
}

std::string KeyedReader::oneOf(std::initializer_list<const char*> words) {
  std::string found = text();
  if (std::ranges::find(words, found) == words.end())
    fault(fmt::format("'{}' is none of the words that stand here", found));
  return found;
}

}  // namespace polarline::results
