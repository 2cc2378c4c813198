#include "report/measure/Comparing.h"

#include <algorithm>
#include <cmath>

namespace polarline {
namespace {

/// In standard deviations.
constexpr double kMoreThanChance = 2.0;

/// The figures of the library, or those from refined centres.
enum class Source : std::uint8_t { kLibrary, kRefined };

const std::vector<FigureSummary>& summaryOf(const Check& check, Source source) {
  static const std::vector<FigureSummary> none;
  if (source == Source::kLibrary) return check.summary;
  return check.refined_summary ? *check.refined_summary : none;
}

const FigureSummary* named(const Check& check, Source source, const std::string& name) {
  const std::vector<FigureSummary>& summary = summaryOf(check, source);
  const auto found = std::ranges::find(summary, name, &FigureSummary::name);
  return found == summary.end() ? nullptr : &*found;
}

const std::vector<FigureUncertainty>& uncertaintyOf(const PairCheck& pair, Source source) {
  static const std::vector<FigureUncertainty> none;
  if (source == Source::kLibrary) return pair.uncertainty;
  return pair.refined ? pair.refined->uncertainty : none;
}

/// How certain a mean is: by the scatter of the pairs, where there are enough; else by that of the dots in each of
/// them, which the pairs' own figures have.
struct MeanError {
  double sd = NAN;
  Difference::Basis basis = Difference::Basis::kPairs;
};

MeanError errorOf(const Check& check, Source source, const FigureSummary& figure) {
  if (std::isfinite(figure.sd_mean)) return {figure.sd_mean, Difference::Basis::kPairs};
  double squares = 0.0;
  std::size_t count = 0;
  for (const PairCheck& pair : check.pairs) {
    const std::vector<FigureUncertainty>& known = uncertaintyOf(pair, source);
    const auto own = std::ranges::find(known, figure.name, &FigureUncertainty::name);
    if (own == known.end()) continue;
    squares += own->sd * own->sd;
    ++count;
  }
  if (count == 0 || count != figure.count) return {};
  return {std::sqrt(squares) / static_cast<double>(count), Difference::Basis::kDots};
}

Difference differenceOf(const Check& first_check, const Check& other_check, Source source, const std::string& name) {
  const FigureSummary* const first = named(first_check, source, name);
  const FigureSummary* const other = named(other_check, source, name);
  Difference difference;
  if (first == nullptr || other == nullptr) return difference;
  const MeanError first_error = errorOf(first_check, source, *first);
  const MeanError other_error = errorOf(other_check, source, *other);
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

std::string nameOf(const FigureSummary& figure, Source source) {
  return (source == Source::kRefined ? "refined." : "") + figure.name;
}

ComparedFigure compare(const std::vector<const Check*>& checks, Source source, const FigureSummary& figure) {
  ComparedFigure compared{nameOf(figure, source), figure.unit, {}, {}, {}, {}};
  for (const Check* check : checks) {
    const FigureSummary* const summary = named(*check, source, figure.name);
    const FigureSummary none{"", "", 0, NAN, NAN, NAN, NAN, 0, NAN, NAN, NAN};
    const FigureSummary& shown = summary == nullptr ? none : *summary;
    compared.mean.push_back(shown.mean);
    compared.low95.push_back(shown.low95);
    compared.high95.push_back(shown.high95);
    compared.differences.push_back(differenceOf(*checks.front(), *check, source, figure.name));
  }
  return compared;
}

}  // namespace

std::vector<ComparedFigure> compareFigures(const std::vector<const Check*>& checks) {
  std::vector<ComparedFigure> figures;
  for (const Source source : {Source::kLibrary, Source::kRefined}) {
    for (const Check* check : checks) {
      for (const FigureSummary& figure : summaryOf(*check, source)) {
        if (std::ranges::count(figures, nameOf(figure, source), &ComparedFigure::name) > 0) continue;
        figures.push_back(compare(checks, source, figure));
      }
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
