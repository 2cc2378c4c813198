#include "store/fleet/MeasuredValues.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_set>

namespace polarline::fleet {
namespace {

/// Values of a set as they come; the sums are of what they differ from the first, so that nothing is lost of a large
/// figure that hardly varies.
class Spread {
 public:
  void add(double value) {
    if (count_ == 0) first_ = min_ = max_ = value;
    const double off = value - first_;
    ++count_;
    sum_ += off;
    squares_ += off * off;
    min_ = std::min(min_, value);
    max_ = std::max(max_, value);
  }
  double value(MeasureValue which) const {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    if (count_ == 0) return kNone;
    switch (which) {
      case MeasureValue::kMax:
        return max_;
      case MeasureValue::kMin:
        return min_;
      case MeasureValue::kAbs:
        return std::max(std::abs(min_), std::abs(max_));
      case MeasureValue::kMean:
        return first_ + sum_ / count_;
      case MeasureValue::kSd:
        return count_ < 2 ? kNone : std::sqrt(std::max(0.0, (squares_ - sum_ * sum_ / count_) / (count_ - 1)));
    }
    return kNone;
  }

 private:
  int count_ = 0;
  double first_ = 0.0, sum_ = 0.0, squares_ = 0.0, min_ = 0.0, max_ = 0.0;
};

/// Tells a pair of a set from every other.
std::uint64_t pairKey(std::int64_t set, std::int64_t pair) {
  constexpr unsigned kPairBits = 20;  // Two sets whose pairs were mixed up would need a million pairs.
  return (static_cast<std::uint64_t>(set) << kPairBits) ^ static_cast<std::uint64_t>(pair);
}

std::unordered_set<std::uint64_t> givenUpPairs(const sqlite::Database& database) {
  std::unordered_set<std::uint64_t> keys;
  sqlite::Statement row(database, "SELECT set_id, pair FROM pairs WHERE state = 'given up'");
  while (row.step()) keys.insert(pairKey(row.integer(0), row.integer(1)));
  return keys;
}

/// The measures that each figure counts for, by its number; and the numbers as a list for SQL.
struct Wanted {
  std::vector<std::vector<std::size_t>> measures_of;
  std::string numbers;
};

Wanted wantedFigures(const sqlite::Database& database, const std::vector<Measure>& measures) {
  Wanted wanted;
  sqlite::Statement row(database, "SELECT id, name FROM figure_names");
  while (row.step()) {
    const std::string name = row.text(1);
    const std::string list = name.substr(0, name.find('['));
    const auto number = static_cast<std::size_t>(row.integer(0));
    for (std::size_t k = 0; k < measures.size(); ++k) {
      if (measures[k].name != name && measures[k].name != list) continue;
      if (wanted.measures_of.size() <= number) wanted.measures_of.resize(number + 1);
      if (wanted.measures_of[number].empty()) {
        if (!wanted.numbers.empty()) wanted.numbers += ',';
        wanted.numbers += row.text(0);
      }
      wanted.measures_of[number].push_back(k);
    }
  }
  return wanted;
}

}  // namespace

MeasuredValues readMeasuredValues(const sqlite::Database& database, const FleetSets& sets,
                                  const std::vector<Measure>& measures) {
  constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
  MeasuredValues values(measures.size(), std::vector<double>(sets.size(), kNone));
  const Wanted wanted = wantedFigures(database, measures);
  const std::unordered_set<std::uint64_t> given_up = givenUpPairs(database);

  std::vector<Spread> of_set(measures.size());
  std::int64_t set = -1;
  const auto finish = [&] {
    if (set < 0) return;
    for (std::size_t k = 0; k < measures.size(); ++k) {
      values[k][sets.placeOf(set)] = of_set[k].value(measures[k].value);
      of_set[k] = {};
    }
  };
  sqlite::Statement row(database, "SELECT set_id, pair, figure, value FROM figures WHERE figure IN (" + wanted.numbers +
                                      ") ORDER BY set_id");
  while (row.step()) {
    if (row.integer(0) != set) {
      finish();
      set = row.integer(0);
    }
    if (given_up.contains(pairKey(set, row.integer(1)))) continue;
    for (const std::size_t k : wanted.measures_of[static_cast<std::size_t>(row.integer(2))]) of_set[k].add(row.real(3));
  }
  finish();
  return values;
}

}  // namespace polarline::fleet
