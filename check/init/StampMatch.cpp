#include "check/init/StampMatch.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <map>
#include <optional>

namespace init {
namespace {

constexpr std::uint64_t kNoSpacing = std::numeric_limits<std::uint64_t>::max();
constexpr std::size_t kLongNumber = 10;

struct Stamp {
  std::uint64_t value = 0;
  std::size_t index = 0;
};

/// The stamps of one side by what stands in front of them.
using Stamps = std::map<std::string, std::vector<Stamp>>;

std::size_t fractionDigits(const std::vector<NameKey>& keys) {
  std::size_t digits = 0;
  for (const NameKey& key : keys) {
    if (key.is_decimal) digits = std::max(digits, key.pieces.back().text.size());
  }
  return digits;
}

/// The last number of a key, a fraction filled up to so many digits; empty for none.
std::string digitsOf(const NameKey& key, std::size_t fraction_digits) {
  if (key.pieces.empty() || !key.pieces.back().is_number) return {};
  std::string digits = key.pieces.back().text;
  if (!key.is_decimal) return digits + std::string(fraction_digits, '0');
  digits.resize(fraction_digits, '0');
  return key.pieces[key.pieces.size() - 2].text + digits;
}

std::optional<std::uint64_t> valueOf(const std::string& digits) {
  std::uint64_t value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (digits.empty() || error != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return value;
}

NameKey withoutNumber(NameKey key) {
  key.pieces.resize(key.pieces.size() - (key.is_decimal ? 2 : 1));
  key.is_decimal = false;
  return key;
}

/// Sorted; nothing if a key has no number.
std::optional<Stamps> stampsOf(const std::vector<NameKey>& keys, std::size_t fraction_digits) {
  Stamps stamps;
  for (std::size_t k = 0; k < keys.size(); ++k) {
    const std::optional<std::uint64_t> value = valueOf(digitsOf(keys[k], fraction_digits));
    if (!value) return std::nullopt;
    stamps[withoutNumber(keys[k]).exact()].push_back({*value, k});
  }
  for (auto& [group, list] : stamps) std::ranges::sort(list, {}, &Stamp::value);
  return stamps;
}

std::uint64_t leastSpacing(const Stamps& stamps) {
  std::uint64_t least = kNoSpacing;
  for (const auto& [group, list] : stamps) {
    for (std::size_t k = 1; k < list.size(); ++k) least = std::min(least, list[k].value - list[k - 1].value);
  }
  return least;
}

void matchGroup(const std::vector<Stamp>& left, const std::vector<Stamp>& right, StampMatch& match) {
  for (std::size_t l = 0, r = 0; l < left.size() && r < right.size();) {
    const bool left_first = left[l].value < right[r].value;
    const std::uint64_t difference = left_first ? right[r].value - left[l].value : left[l].value - right[r].value;
    if (difference < match.spacing - difference && difference < match.spacing) {
      match.pairs.emplace_back(left[l++].index, right[r++].index);
      match.difference = std::max(match.difference, difference);
    } else {
      left_first ? ++l : ++r;
    }
  }
}

}  // namespace

StampMatch matchStamps(const KeyReading& reading) {
  StampMatch match;
  const std::size_t fraction = std::max(fractionDigits(reading.left), fractionDigits(reading.right));
  const std::optional<Stamps> left = stampsOf(reading.left, fraction);
  const std::optional<Stamps> right = stampsOf(reading.right, fraction);
  if (!left || !right) return match;
  match.spacing = std::min(leastSpacing(*left), leastSpacing(*right));
  if (match.spacing == kNoSpacing) return match;
  for (const auto& [group, list] : *left) {
    if (const auto partner = right->find(group); partner != right->end()) matchGroup(list, partner->second, match);
  }
  std::ranges::sort(match.pairs);
  match.long_numbers = digitsOf(reading.left.front(), fraction).size() >= kLongNumber;
  return match;
}

}  // namespace init
