#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "report/read/Place.h"

namespace polarline {

/// Lists of numbers of one object that belong together. What is not as wanted throws `InputError` with its key.
class Columns {
 public:
  /// @param rows How long each of them is.
  Columns(Place place, std::size_t rows) : place_(std::move(place)), rows_(rows) {}

  /// Whole numbers from 0.
  std::vector<std::size_t> counts(const char* key) const;
  /// Whole numbers from 0 and below `end`.
  std::vector<std::size_t> indices(const char* key, std::size_t end) const;
  /// Numbers; null becomes not a number.
  std::vector<double> numbers(const char* key) const;

 private:
  const Json& list(const char* key) const;

  Place place_;
  std::size_t rows_;
};

/// How many entries a list has; for a list by which others are measured.
std::size_t lengthOf(const Place& place, const char* key);

}  // namespace polarline
