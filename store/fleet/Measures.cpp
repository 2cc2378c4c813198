#include "store/fleet/Measures.h"

#include <algorithm>
#include <functional>
#include <map>
#include <numeric>
#include <set>
#include <utility>

#include "check/explain/FigureEntries.h"
#include "check/figures/PairReading.h"

namespace polarline::fleet {
namespace {

std::string withoutEntry(const std::string& name) { return name.substr(0, name.find('[')); }

std::string withoutPrefix(const std::string& name) {
  return name.starts_with(kRefinedPrefix) ? name.substr(kRefinedPrefix.size()) : name;
}

/// Pairs, finished and given up are counts of a set, no figures of its pairs.
bool isFigure(const std::string& name) { return figureShape(withoutPrefix(withoutEntry(name))).has_value(); }

MeasureValue statisticOf(const std::string& statistic) {
  if (statistic == "max") return MeasureValue::kMax;
  if (statistic == "min") return MeasureValue::kMin;
  return statistic == "sd" ? MeasureValue::kSd : MeasureValue::kMean;
}

/// What limits on each pair ask of a set: the value that comes nearest to the bound.
MeasureValue valueFor(const LimitsSeen& limits, const std::vector<std::size_t>& rules) {
  const auto all = [&](auto&& is) {
    return std::ranges::all_of(rules, [&](std::size_t k) { return is(limits.rules[k]); });
  };
  if (!all([](const LimitRule& rule) { return !rule.is_absolute; })) return MeasureValue::kAbs;
  if (all([](const LimitRule& rule) { return rule.is_upper; })) return MeasureValue::kMax;
  if (all([](const LimitRule& rule) { return !rule.is_upper; })) return MeasureValue::kMin;
  return MeasureValue::kMean;
}

using Key = std::pair<std::string, MeasureValue>;

std::vector<Measure> judgedMeasures(const LimitsSeen& limits) {
  std::map<std::string, std::vector<std::size_t>> on_pairs;
  std::map<Key, std::vector<std::size_t>> found;
  for (std::size_t k = 0; k < limits.rules.size(); ++k) {
    const LimitRule& rule = limits.rules[k];
    if (rule.sets == 0 || !isFigure(rule.figure)) continue;
    if (rule.statistic.empty())
      on_pairs[rule.figure].push_back(k);
    else
      found[{rule.figure, statisticOf(rule.statistic)}].push_back(k);
  }
  for (const auto& [name, rules] : on_pairs) {
    std::vector<std::size_t>& all = found[{name, valueFor(limits, rules)}];
    all.insert(all.end(), rules.begin(), rules.end());
  }
  std::vector<Measure> measures;
  const auto sets = [&](std::size_t rule) { return limits.rules[rule].sets; };
  for (auto& [key, rules] : found) {
    std::ranges::stable_sort(rules, std::greater<>(), sets);
    measures.push_back({key.first, key.second, rules});
  }
  std::ranges::stable_sort(measures, std::greater<>(), [&](const Measure& measure) { return sets(measure.rules[0]); });
  return measures;
}

}  // namespace

const char* nameOf(MeasureValue value) {
  switch (value) {
    case MeasureValue::kMax:
      return "max";
    case MeasureValue::kMin:
      return "min";
    case MeasureValue::kAbs:
      return "abs";
    case MeasureValue::kMean:
      return "mean";
    case MeasureValue::kSd:
      return "sd";
  }
  return "";
}

std::string unitOf(const std::string& name) {
  static const std::map<std::string, std::string> units = [] {
    std::map<std::string, std::string> all;
    for (const Explanation& figure : figureExplanations()) all.emplace(figure.name, figure.unit);
    return all;
  }();
  const auto found = units.find(withoutPrefix(withoutEntry(name)));
  return found == units.end() || found->second == "1" ? "" : found->second;
}

std::vector<Measure> chooseMeasures(const sqlite::Database& database, const LimitsSeen& limits, std::size_t& left_out) {
  std::vector<Measure> measures = judgedMeasures(limits);
  left_out = measures.size() - std::min(measures.size(), kMostMeasures);
  measures.resize(measures.size() - left_out);
  sqlite::Statement named(database, "SELECT count(*) FROM figure_names WHERE name = ?");
  for (const char* name : {"dy_means", "dy_max", "tri_rms", "dis_rms", "space_rms", "refined.dy_means"}) {
    const bool is_there = named.bind(name).step() && named.integer(0) > 0;
    const bool is_judged = std::ranges::count(measures, name, &Measure::name) > 0;
    if (is_there && !is_judged && measures.size() < kMostMeasures) measures.push_back({name, MeasureValue::kMean, {}});
  }
  return measures;
}

GroupBounds boundsOf(const Measure& measure, const LimitsSeen& limits, const FleetSets& sets, std::size_t groups) {
  std::vector<bool> is_on_it(limits.rules.size());
  for (const std::size_t rule : measure.rules) is_on_it[rule] = true;
  // Of a set: the tightest, should it have several.
  std::map<std::size_t, Bounds> of_set;
  for (const LimitSeen& limit : limits.all) {
    if (!is_on_it[limit.rule]) continue;
    const LimitRule& rule = limits.rules[limit.rule];
    Bounds& bounds = of_set[limit.place];
    if (rule.is_upper)
      bounds.upper = std::min(bounds.upper.value_or(rule.bound), rule.bound);
    else
      bounds.lower = std::max(bounds.lower.value_or(rule.bound), rule.bound);
  }
  GroupBounds found;
  found.of_group.resize(groups);
  const auto take = [&](std::optional<double>& held, const std::optional<double>& newer) {
    if (!newer) return;
    if (held && *held != *newer) found.changed = true;
    held = newer;
  };
  for (const auto& [place, bounds] : of_set) {  // By time.
    const int group = sets.at(place).group;
    if (group < 0) continue;
    take(found.of_group[static_cast<std::size_t>(group)].lower, bounds.lower);
    take(found.of_group[static_cast<std::size_t>(group)].upper, bounds.upper);
  }
  return found;
}

}  // namespace polarline::fleet
