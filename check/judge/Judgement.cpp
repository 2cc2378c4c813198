#include "check/judge/Judgement.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <string_view>

#include "check/explain/FigureEntries.h"
#include "check/figures/PairReading.h"
#include "check/figures/Summary.h"
#include "check/set/ByteOrderMark.h"
#include "platform/PlainNumber.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

constexpr const char* kPairs = "pairs";
constexpr const char* kFinished = "finished";
constexpr const char* kGivenUp = "given_up";
/// Comes with the compensation of the eccentricity, which refined centres do not need.
constexpr const char* kNeverRefined = "PoseReport";

/// Numbers of the run itself.
std::optional<double> countOf(const std::string& name, const Check& check) {
  if (name == kPairs) return static_cast<double>(check.pairs.size());
  if (name == kFinished) return static_cast<double>(check.finished());
  if (name == kGivenUp) return static_cast<double>(check.pairs.size() - check.finished());
  return std::nullopt;
}

/// How far a value is beyond the bound; inside it is below 0.
double excess(const Limit& limit, double value) {
  const double judged = limit.is_absolute ? std::abs(value) : value;
  const bool is_upper =
      limit.comparison == Limit::Comparison::kLess || limit.comparison == Limit::Comparison::kLessOrEqual;
  return is_upper ? judged - limit.bound : limit.bound - judged;
}

LimitResult outcome(const Limit& limit, std::optional<double> value, int pair, const std::string& why) {
  return {limit.text, value, pair, value.has_value() && holds(limit, *value), why};
}

LimitResult unmeasured(const Limit& limit, const std::string& why) {
  return {limit.text, std::nullopt, -1, false, why};
}

/// Behind the reason of a limit whose bound lies where the figure may as well be. The verdict stays that of the figure.
std::string closeCall(const Limit& limit, double low95, double high95) {
  if (!(low95 <= limit.bound && limit.bound <= high95)) return {};
  return fmt::format("; too close to call, it is certain to 95 % only from {} to {}", plain::rounded(low95, 4),
                     plain::rounded(high95, 4));
}

/// For a figure of single precision the bound is the float that is written so, as the figure itself is: what is
/// printed as 0.1 keeps "<=0.1".
Limit asSingle(const Limit& limit) {
  Limit narrowed = limit;
  narrowed.bound = static_cast<double>(static_cast<float>(limit.bound));
  return narrowed;
}

/// Whether a pair's figure was measured and keeps a limit on its entries.
bool keeps(const Limit& given, const Figure& figure) {
  const Limit limit = figure.is_single ? asSingle(given) : given;
  if (limit.entry) return *limit.entry < figure.values.size() && holds(limit, figure.values[*limit.entry]);
  return !figure.values.empty() &&
         std::ranges::all_of(figure.values, [&](double value) { return holds(limit, value); });
}

/// Of a limit on one entry of a list what a table has to show; of any other the figure as a whole.
void markEntry(const Limit& limit, bool exceeds, Figure& figure) {
  if (!limit.entry) {
    figure.is_whole_limited = true;
    return;
  }
  const auto known = std::ranges::find(figure.entries, *limit.entry, &LimitedEntry::entry);
  if (known == figure.entries.end())
    figure.entries.push_back({*limit.entry, exceeds});
  else
    known->exceeds = known->exceeds || exceeds;
}

/// The worst of the values that one limit judges.
class Worst {
 public:
  explicit Worst(const Limit& limit) : limit_(limit) {}

  void add(const PairCheck& pair, const Figure& figure, std::size_t entry) {
    const double value = figure.values[entry];
    const bool counts = !std::isnan(value);
    if (value_ && (!std::isfinite(*value_) || (counts && excess(limit_, value) <= excess(limit_, *value_)))) return;
    value_ = value;
    pair_ = static_cast<int>(pair.index);
    name_ = std::string(limit_.is_refined ? kRefinedPrefix : std::string_view()).append(entryName(figure, entry));
    is_single_ = figure.is_single;
    const FigureUncertainty* const uncertainty =
        limit_.is_refined ? pair.refined->uncertaintyOf(figure.name) : pair.uncertaintyOf(figure.name);
    close_ = uncertainty == nullptr ? "" : closeCall(limit_, uncertainty->low95, uncertainty->high95);
  }
  LimitResult result() const {
    const std::string number = is_single_ ? plain::exact(static_cast<float>(*value_)) : plain::exact(*value_);
    LimitResult result = outcome(is_single_ ? asSingle(limit_) : limit_, value_, pair_,
                                 fmt::format("{} is {} in pair {}", name_, number, pair_) + close_);
    result.is_single = is_single_;
    return result;
  }

 private:
  const Limit& limit_;
  std::optional<double> value_;
  int pair_ = -1;
  std::string name_;
  bool is_single_ = false;
  std::string close_;
};

const Figure* judgedFigure(const Limit& limit, const PairCheck& pair) {
  if (!limit.is_refined) return pair.figure(limit.figure);
  return pair.refined ? pair.refined->figure(limit.figure) : nullptr;
}

LimitResult judgePairs(const Limit& limit, const Check& check) {
  Worst worst(limit);
  for (const PairCheck& pair : check.pairs) {
    if (!pair.finished) continue;
    const Figure* const figure = judgedFigure(limit, pair);
    const std::size_t entries = figure == nullptr ? 0 : figure->values.size();
    if (entries == 0 || limit.entry.value_or(0) >= entries)
      return unmeasured(limit, fmt::format("pair {} did not measure it", pair.index));
    const std::size_t first = limit.entry.value_or(0);
    const std::size_t last = limit.entry.value_or(entries - 1);
    for (std::size_t k = first; k <= last; ++k) worst.add(pair, *figure, k);
  }
  return check.finished() == 0 ? unmeasured(limit, "no pair was finished") : worst.result();
}

double statisticOf(const FigureSummary& summary, const std::string& name) {
  if (name == "mean") return summary.mean;
  if (name == "sd") return summary.sd;
  return name == "min" ? summary.min : summary.max;
}

LimitResult judgeSummary(const Limit& limit, const Check& check) {
  const std::string entry = limit.entry ? fmt::format("{}[{}]", limit.figure, *limit.entry) : limit.figure;
  const std::string wanted = judgedName(limit);
  const std::vector<FigureSummary> none;
  const auto& refined = check.refined_summary ? *check.refined_summary : none;
  const auto& summary = limit.is_refined ? refined : check.summary;
  const auto found = std::ranges::find(summary, entry, &FigureSummary::name);
  if (found == summary.end()) return unmeasured(limit, "no pair measured " + wanted);
  const double value = statisticOf(*found, limit.statistic);
  const std::string close = limit.statistic == "mean" ? closeCall(limit, found->low95, found->high95) : "";
  return outcome(
      limit, value, -1,
      fmt::format("the {} of {} over {} pairs is {}", limit.statistic, wanted, found->count, plain::exact(value)) +
          close);
}

LimitResult judgeOne(const Limit& limit, const Check& check, bool is_whole) {
  const auto count = countOf(limit.figure, check);
  if (count && !is_whole)
    return unmeasured(limit,
                      fmt::format("the run ended before its last pair; up to there {} is {}", limit.figure, *count));
  if (count) return outcome(limit, count, -1, fmt::format("{} is {}", limit.figure, *count));
  return limit.statistic.empty() ? judgePairs(limit, check) : judgeSummary(limit, check);
}

}  // namespace

std::vector<std::string> limitNames() {
  std::vector<std::string> names = figureNames();
  for (const std::string& figure : figureNames()) {
    if (figure != kNeverRefined) names.push_back(std::string(kRefinedPrefix).append(figure));
  }
  names.insert(names.end(), {kPairs, kFinished, kGivenUp});
  return names;
}

std::vector<Limit> readLimits(const InputFile& file) {
  const std::string& path = file.shown;
  std::ifstream stream(file.path, std::ios::binary);
  std::vector<Limit> limits;
  std::string line;
  for (int number = 1; std::getline(stream, line); ++number) {
    if (number == 1) line = byte_order_mark::cutOff(line);
    if (line.ends_with('\r')) line.pop_back();
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line[begin] == '#') continue;
    if (line.find('\0') != std::string::npos)
      throw InputError(fmt::format("{}, line {}", path, number), "holds a NUL; a text with limits was wanted");
    try {
      limits.push_back(parseLimit(line));
    } catch (const InputError& error) {
      throw InputError(fmt::format("{}, line {}", path, number), error.what());
    }
  }
  return limits;
}

void requireDetected(const std::vector<Limit>& limits) {
  for (const Limit& limit : limits) {
    if (limit.is_refined)
      throw InputError("limit '" + limit.text + "'",
                       "it judges a refined figure; a check that refines was wanted (--refine)");
  }
}

void mark(const std::vector<Limit>& limits, PairCheck& pair) {
  for (const Limit& limit : limits) {
    if (!limit.statistic.empty() || (limit.is_refined && !pair.refined)) continue;
    std::vector<Figure>& figures = limit.is_refined ? pair.refined->figures : pair.figures;
    const auto figure = std::ranges::find_if(figures, [&](const Figure& each) { return limit.figure == each.name; });
    if (figure == figures.end()) continue;
    const bool exceeds = pair.finished && !keeps(limit, *figure);
    figure->is_limited = true;
    figure->exceeds = figure->exceeds || exceeds;
    markEntry(limit, exceeds, *figure);
  }
}

std::vector<LimitResult> judge(const std::vector<Limit>& limits, const Check& check, bool is_whole) {
  std::vector<LimitResult> results;
  results.reserve(limits.size());
  for (const Limit& limit : limits) results.push_back(judgeOne(limit, check, is_whole));
  return results;
}

}  // namespace polarline
