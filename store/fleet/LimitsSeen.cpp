#include "store/fleet/LimitsSeen.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <utility>

namespace polarline::fleet {
namespace {

constexpr double kMostTimes = 1000.0;
constexpr std::size_t kNoSet = static_cast<std::size_t>(-1);

std::unordered_map<std::string, std::size_t> readRules(const sqlite::Database& database, LimitsSeen& seen) {
  std::unordered_map<std::string, std::size_t> places;
  sqlite::Statement row(database, "SELECT text, figure, statistic, absolute, comparison, bound FROM limit_rules");
  while (row.step()) {
    places.emplace(row.text(0), seen.rules.size());
    seen.rules.push_back(
        {row.text(0), row.text(1), row.text(2), row.integer(3) != 0, row.text(4).starts_with("<"), row.real(5)});
  }
  return places;
}

}  // namespace

LimitsSeen readLimitsSeen(const sqlite::Database& database, const FleetSets& sets) {
  LimitsSeen seen;
  const std::unordered_map<std::string, std::size_t> places = readRules(database, seen);
  std::vector<std::size_t> last_set(seen.rules.size(), kNoSet);
  sqlite::Statement row(database, "SELECT set_id, text, value, holds FROM limits ORDER BY set_id, position");
  while (row.step()) {
    const auto rule = places.find(row.text(1));
    if (rule == places.end()) continue;
    const double value = row.isNull(2) ? std::numeric_limits<double>::quiet_NaN() : row.real(2);
    const std::size_t place = sets.placeOf(row.integer(0));
    seen.all.push_back({place, rule->second, value, row.integer(3) != 0});
    if (std::exchange(last_set[rule->second], place) != place) ++seen.rules[rule->second].sets;
  }
  return seen;
}

std::optional<double> timesOf(const LimitRule& rule, double value) {
  if (rule.figure.empty() || std::isnan(value)) return std::nullopt;
  const double judged = rule.is_absolute ? std::abs(value) : value;
  double times = 0.0;
  if (rule.bound <= 0.0) {
    const double beyond = rule.is_upper ? judged - rule.bound : rule.bound - judged;
    times = 1.0 + beyond / (rule.bound == 0.0 ? 1.0 : -rule.bound);
  } else if (rule.is_upper) {
    times = judged / rule.bound;
  } else {
    times = judged > 0.0 ? rule.bound / judged : kMostTimes;
  }
  return std::min(times, kMostTimes);
}

}  // namespace polarline::fleet
