#include "report/fleet/Columns.h"

#include <fmt/format.h>

#include <cstdint>

namespace polarline {

std::size_t lengthOf(const Place& place, const char* key) { return place.numberList(key).json().at(key).size(); }

const Json& Columns::list(const char* key) const {
  const std::size_t found = lengthOf(place_, key);
  if (found != rows_) place_.refuse(key, fmt::format("found {} entries, wanted {}", found, rows_));
  return place_.json().at(key);
}

std::vector<std::size_t> Columns::counts(const char* key) const { return indices(key, std::size_t{INT32_MAX}); }

std::vector<std::size_t> Columns::indices(const char* key, std::size_t end) const {
  std::vector<std::size_t> numbers;
  numbers.reserve(rows_);
  for (const Json& each : list(key)) {
    const bool is_whole = each.is_number_unsigned() || (each.is_number_integer() && each.get<std::int64_t>() >= 0);
    const auto number = is_whole ? each.get<std::uint64_t>() : 0;
    if (!is_whole || number >= end) {
      place_.refuse(key, fmt::format("found {} as entry {}, wanted a whole number from 0 and below {}", each.dump(),
                                     numbers.size(), end));
    }
    numbers.push_back(number);
  }
  return numbers;
}

std::vector<double> Columns::numbers(const char* key) const {
  std::vector<double> all;
  all.reserve(rows_);
  for (const Json& each : list(key)) all.push_back(numberOf(each));
  return all;
}

}  // namespace polarline
