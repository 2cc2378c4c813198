#include "report/measure/Comparing.h"

#include <algorithm>
#include <cmath>

namespace polarline {
namespace {

/// In standard deviations.
constexpr double kMoreThanChance = 2.0;

const FigureSummary* named(const Check& check, const std::string& name) {
  const auto found = std::ranges::find(check.summary, name, &FigureSummary::name);
  return found == check.summary.end() ? nullptr : &*found;
}

/// How certain a mean is: by the scatter of the pairs, where there are enough; else by that of the dots in each of
/// them, which the pairs' own figures have.
struct MeanError {
  double sd = NAN;
  Difference::Basis basis = Difference::Basis::kPairs;
};

MeanError errorOf(const Check& check, const FigureSummary& figure) {
  if (std::isfinite(figure.sd_mean)) return {figure.sd_mean, Difference::Basis::kPairs};
  double squares = 0.0;
  std::size_t count = 0;
  for (const PairCheck& pair : check.pairs) {
    const auto own = std::ranges::find(pair.uncertainty, figure.name, &FigureUncertainty::name);
    if (own == pair.uncertainty.end()) continue;
    squares += own->sd * own->sd;
    ++count;
  }
  if (count == 0 || count != figure.count) return {};
  return {std::sqrt(squares) / static_cast<double>(count), Difference::Basis::kDots};
}

Difference differenceOf(const Check& first_check, const FigureSummary* first, const Check& other_check,
                        const FigureSummary* other) {
  Difference difference;
  if (first == nullptr || other == nullptr) return difference;
  const MeanError first_error = errorOf(first_check, *first);
  const MeanError other_error = errorOf(other_check, *other);
  difference.value = other->mean - first->mean;
  difference.sd = std::hypot(first_error.sd, other_error.sd);
  difference.basis = std::max(first_error.basis, other_error.basis);
  if (difference.value == 0.0) difference.judged = Difference::Judged::kNone;
  if (!std::isfinite(difference.sd) || !(std::abs(difference.value) > 0.0)) return difference;
  const bool is_chance = std::abs(difference.value) <= kMoreThanChance * difference.sd;
  difference.judged = is_chance                ? Difference::Judged::kNone
                      : difference.value > 0.0 ? Difference::Judged::kMore
                                               : Difference::Judged::kLess;
  return difference;
}

ComparedFigure compare(const std::vector<const Check*>& checks, const FigureSummary& figure) {
  ComparedFigure compared{figure.name, figure.unit, {}, {}, {}, {}};
  const FigureSummary* const first = named(*checks.front(), figure.name);
  for (const Check* check : checks) {
    const FigureSummary* const summary = named(*check, figure.name);
    const FigureSummary none{"", "", 0, NAN, NAN, NAN, NAN, 0, NAN, NAN, NAN};
    const FigureSummary& shown = summary == nullptr ? none : *summary;
    compared.mean.push_back(shown.mean);
    compared.low95.push_back(shown.low95);
    compared.high95.push_back(shown.high95);
    compared.differences.push_back(differenceOf(*checks.front(), first, *check, summary));
  }
  return compared;
}

}  // namespace

std::vector<ComparedFigure> compareFigures(const std::vector<const Check*>& checks) {
  std::vector<ComparedFigure> figures;
  for (const Check* check : checks) {
    for (const FigureSummary& figure : check->summary) {
      const bool is_entry = figure.name.find('[') != std::string::npos;
      if (is_entry || std::ranges::count(figures, figure.name, &ComparedFigure::name) > 0) continue;
      figures.push_back(compare(checks, figure));
    }
  }
  return figures;
}

std::vector<ComparedLimit> compareLimits(const std::vector<const Check*>& checks) {
  std::vector<ComparedLimit> limits;
  for (const Check* check : checks) {
    for (const LimitResult& limit : check->limits) {
      if (std::ranges::count(limits, limit.text, &ComparedLimit::text) > 0) continue;
      ComparedLimit compared{limit.text, {}};
      for (const Check* other : checks) {
        const auto found = std::ranges::find(other->limits, limit.text, &LimitResult::text);
        compared.results.push_back(found == other->limits.end() ? nullptr : &*found);
      }
      limits.push_back(compared);
    }
  }
  return limits;
}

}  // namespace polarline
