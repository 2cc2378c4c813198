#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "store/fleet/FleetSets.h"

namespace polarline::fleet {

/// How many sets of which cell said something: a set counts once for each word, and a set that was left out not at all.
class Tally {
 public:
  explicit Tally(const FleetSets& sets) : sets_(&sets) {}

  /// Those of a set come one after the other.
  void add(std::size_t place, const std::string& word);

  /// The words that most sets said, most first, then by name; at most so many.
  /// @param left_out How many more there are.
  std::vector<std::string> words(std::size_t most, std::size_t& left_out) const;

  struct Row {
    std::size_t cell = 0, word = 0, sets = 0;
  };
  /// By cell, then word; a word is an index of the list.
  std::vector<Row> rows(const std::vector<std::string>& words) const;

 private:
  struct Counted {
    std::map<int, std::size_t> sets;  ///< By cell.
    std::size_t all = 0;
    std::size_t last_place = static_cast<std::size_t>(-1);
  };
  const FleetSets* sets_;
  std::map<std::string, Counted> counted_;
};

}  // namespace polarline::fleet
