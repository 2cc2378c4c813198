#include "check/judge/Limit.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <regex>
#include <string_view>
#include <vector>

#include "check/explain/FigureEntries.h"
#include "check/explain/Names.h"
#include "check/figures/PairReading.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// Submatches of the one form that a limit has.
enum Part : std::uint8_t {
  kWhole,
  kBar,
  kSummary,
  kRefined,
  kName,
  kEntry,
  kStatistic,
  kClosingBar,
  kOperator,
  kBound
};

const std::regex& form() {
  static const std::regex limit(
      R"(\s*(\|)?\s*(summary\.)?(refined\.)?([A-Za-z_]\w*)(?:\[(\d{1,4})\])?(?:\.([A-Za-z_]\w*))?\s*(\|)?\s*(<=|>=|<|>)\s*(?:([^\s=]\S*)\s*)?)");
  return limit;
}

[[noreturn]] void refuse(const std::string& text, const std::string& problem) {
  throw InputError("limit '" + text + "'", problem);
}

double numberOf(const std::string& text, const std::string& written) {
  double value = 0.0;
  const char* const end = written.data() + written.size();
  const auto [rest, error] = std::from_chars(written.data(), end, value);
  if (error != std::errc() || rest != end || !std::isfinite(value))
    refuse(text, (written.empty() ? "nothing stands behind the sign" : "'" + written + "' is not a number") +
                     "; a decimal number such as 0.1 was wanted");
  return value;
}

Limit::Comparison comparisonOf(const std::string& written) {
  using enum Limit::Comparison;
  if (written == "<=") return kLessOrEqual;
  if (written == ">=") return kGreaterOrEqual;
  return written == "<" ? kLess : kGreater;
}

/// The figure's name as the limit gives it.
std::string givenName(const Limit& limit) {
  return limit.is_refined ? std::string(kRefinedPrefix).append(limit.figure) : limit.figure;
}

void requireStatistic(const Limit& limit) {
  constexpr std::array<std::string_view, 4> kStatistics = {"mean", "sd", "min", "max"};
  if (!limit.statistic.empty() && std::ranges::count(kStatistics, limit.statistic) == 0)
    refuse(limit.text, "there is no statistic '" + limit.statistic + "'; mean, sd, min or max was wanted");
}

/// Refuses what no figure can be judged by: then a run would fail for it, or pass.
void requireJudgeable(const Limit& limit) {
  const auto shape = figureShape(limit.figure);
  if (!shape && limit.entry) refuse(limit.text, "'" + limit.figure + "' is a count; it has no entries");
  if (!shape && !limit.statistic.empty()) refuse(limit.text, "'" + limit.figure + "' is a count; it has no statistics");
  if (!shape) return;
  if (!shape->is_list && limit.entry) refuse(limit.text, "'" + givenName(limit) + "' is one number; it has no entries");
  if (shape->is_list && !limit.entry && !limit.statistic.empty()) {
    refuse(limit.text, "'" + givenName(limit) + "' is a list; an entry was wanted, such as summary." +
                           givenName(limit) + "[0]." + limit.statistic);
  }
  if (shape->entries != 0 && limit.entry.value_or(0) >= shape->entries) {
    refuse(limit.text, "entry " + std::to_string(*limit.entry) + " was found; '" + limit.figure +
                           "' has the entries 0-" + std::to_string(shape->entries - 1));
  }
}

}  // namespace

Limit parseLimit(const std::string& text) {
  std::smatch part;
  if (!std::regex_match(text, part, form()) || part[kBar].matched != part[kClosingBar].matched ||
      part[kSummary].matched != part[kStatistic].matched) {
    refuse(text,
           "does not parse; FIGURE OP VALUE was wanted with <=, >=, < or > for OP, such as dy_means<=0.1, "
           "|tri_dis[0]|<=0.5, "
           "summary.dy_means.mean<=0.1 or refined.dy_means<=0.05");
  }
  Limit limit;
  limit.text = text;
  limit.figure = part[kName].str();
  limit.is_refined = part[kRefined].matched;
  if (!std::ranges::count(limitNames(), givenName(limit))) {
    const std::string offered = offer(nearest(givenName(limit), limitNames()));
    refuse(text, "there is no figure '" + givenName(limit) + "'" +
                     (offered.empty() ? "; 'polarline explain' lists all" : offered));
  }
  if (part[kEntry].matched) limit.entry = static_cast<std::size_t>(std::stoul(part[kEntry].str()));
  limit.statistic = part[kStatistic].str();
  requireStatistic(limit);
  limit.is_absolute = part[kBar].matched;
  limit.comparison = comparisonOf(part[kOperator].str());
  limit.bound = numberOf(text, part[kBound].str());
  requireJudgeable(limit);
  return limit;
}

std::string judgedName(const Limit& limit) {
  return limit.entry ? givenName(limit) + "[" + std::to_string(*limit.entry) + "]" : givenName(limit);
}

bool isUpper(const Limit& limit) {
  return limit.comparison == Limit::Comparison::kLess || limit.comparison == Limit::Comparison::kLessOrEqual;
}

bool holds(const Limit& limit, double value) {
  const double judged = limit.is_absolute ? std::abs(value) : value;
  switch (limit.comparison) {
    case Limit::Comparison::kLess:
      return judged < limit.bound;
    case Limit::Comparison::kLessOrEqual:
      return judged <= limit.bound;
    case Limit::Comparison::kGreater:
      return judged > limit.bound;
    case Limit::Comparison::kGreaterOrEqual:
      return judged >= limit.bound;
  }
  return false;
}

void requireLimit(const std::string& text) { parseLimit(text); }

}  // namespace polarline
