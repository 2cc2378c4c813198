#include "store/fleet/Tally.h"

#include <algorithm>
#include <functional>
#include <tuple>

namespace polarline::fleet {

void Tally::add(std::size_t place, const std::string& word) {
  const int cell = sets_->at(place).cell;
  if (cell < 0) return;
  Counted& counted = counted_[word];
  if (std::exchange(counted.last_place, place) == place) return;
  ++counted.sets[cell];
  ++counted.all;
}

std::vector<std::string> Tally::words(std::size_t most, std::size_t& left_out) const {
  std::vector<std::string> words;
  for (const auto& [word, counted] : counted_) words.push_back(word);
  std::ranges::stable_sort(words, std::greater<>(), [&](const std::string& word) { return counted_.at(word).all; });
  left_out = words.size() - std::min(words.size(), most);
  words.resize(words.size() - left_out);
  return words;
}

std::vector<Tally::Row> Tally::rows(const std::vector<std::string>& words) const {
  std::vector<Row> rows;
  for (std::size_t k = 0; k < words.size(); ++k) {
    for (const auto& [cell, sets] : counted_.at(words[k]).sets)
      rows.push_back({static_cast<std::size_t>(cell), k, sets});
  }
  std::ranges::sort(rows, {}, [](const Row& row) { return std::tuple(row.cell, row.word); });
  return rows;
}

}  // namespace polarline::fleet
