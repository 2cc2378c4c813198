#include "store/fleet/Worst.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

namespace polarline::fleet {
namespace {

constexpr std::size_t kMost = 300;

/// One without a number is the worst of all that do not hold, and says nothing of those that do.
double badness(const LimitRule& rule, const LimitSeen& limit) {
  constexpr double kInfinite = std::numeric_limits<double>::infinity();
  const auto times = timesOf(rule, limit.value);
  if (times) return *times;
  return limit.holds ? -kInfinite : kInfinite;
}

std::optional<double> ifNumber(double value) { return std::isnan(value) ? std::nullopt : std::optional(value); }

/// A set with what it is ordered by: the lesser the worse.
struct Ranked {
  WorstSet set;
  int kind = 0;        ///< 0: failed, 1: not, 2: without limits.
  double order = 0.0;  ///< Within the kind.

  friend bool operator<(const Ranked& a, const Ranked& b) {
    return std::tuple(a.kind, a.order, a.set.place) < std::tuple(b.kind, b.order, b.set.place);
  }
};

std::vector<Ranked> rank(const FleetSets& sets, const LimitsSeen& limits, const std::vector<double>& rows) {
  std::vector<const LimitSeen*> decisive(sets.size());
  for (const LimitSeen& limit : limits.all) {
    const LimitSeen*& held = decisive[limit.place];
    if (held == nullptr || badness(limits.rules[limit.rule], limit) > badness(limits.rules[held->rule], *held))
      held = &limit;
  }
  std::vector<Ranked> ranked;
  for (std::size_t place = 0; place < sets.size(); ++place) {
    const FleetSet& set = sets.at(place);
    if (set.group < 0 || set.ending == Ending::kError) continue;
    if (const LimitSeen* const limit = decisive[place]) {
      const LimitRule& rule = limits.rules[limit->rule];
      ranked.push_back({{place, limit->rule, ifNumber(limit->value), timesOf(rule, limit->value)},
                        set.ending == Ending::kFailed ? 0 : 1,
                        -badness(rule, *limit)});
    } else {
      const double known = std::isnan(rows[place]) ? -std::numeric_limits<double>::infinity() : rows[place];
      ranked.push_back({{place, std::nullopt, ifNumber(rows[place]), std::nullopt}, 2, -known});
    }
  }
  std::ranges::sort(ranked, std::less<>());
  return ranked;
}

/// The first of each group, so many; the whole stays in order.
std::vector<WorstSet> firstOfEach(const std::vector<Ranked>& ranked, const FleetSets& sets, std::size_t groups,
                                  std::size_t most) {
  std::vector<std::size_t> taken(groups);
  std::vector<WorstSet> first;
  for (const Ranked& each : ranked) {
    if (taken[static_cast<std::size_t>(sets.at(each.set.place).group)]++ < most) first.push_back(each.set);
  }
  return first;
}

}  // namespace

std::vector<WorstSet> worstOf(const FleetSets& sets, const LimitsSeen& limits, const std::vector<double>& rows,
                              std::size_t groups) {
  const std::vector<Ranked> ranked = rank(sets, limits, rows);
  std::vector<WorstSet> worst;
  for (const std::size_t most : {10U, 5U, 3U, 1U}) {
    worst = firstOfEach(ranked, sets, groups, most);
    if (worst.size() <= kMost) return worst;
  }
  worst.resize(kMost);
  return worst;
}

}  // namespace polarline::fleet
