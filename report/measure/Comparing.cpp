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

Difference differenceOf(const FigureSummary* first, const FigureSummary* other) {
  Difference difference;
  if (first == nullptr || other == nullptr) return difference;
  difference.value = other->mean - first->mean;
  difference.sd = std::hypot(first->sd_mean, other->sd_mean);
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
    compared.differences.push_back(differenceOf(first, summary));
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
