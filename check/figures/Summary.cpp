#include "check/figures/Summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "diagnose/uncertainty/OverPairs.h"

namespace polarline {
namespace {

/// Mean and deviation by Welford's recurrence (1962): one walk, and no loss where the mean is large.
class Accumulator {
 public:
  explicit Accumulator(FigureSummary& summary) : summary_(summary) {
    summary_.min = std::numeric_limits<double>::infinity();
    summary_.max = -std::numeric_limits<double>::infinity();
  }
  void add(double value, std::size_t pair) {
    ++summary_.count;
    const double before = value - summary_.mean;
    summary_.mean += before / static_cast<double>(summary_.count);
    squares_ += before * (value - summary_.mean);
    summary_.min = std::min(summary_.min, value);
    summary_.max = std::max(summary_.max, value);
    if (summary_.count == 1 || std::abs(value) > farthest_) {
      farthest_ = std::abs(value);
      summary_.worst_pair = pair;
    }
  }
  void finish() {
    summary_.sd = summary_.count < 2 ? std::numeric_limits<double>::quiet_NaN()
                                     : std::sqrt(squares_ / static_cast<double>(summary_.count - 1));
  }

 private:
  FigureSummary& summary_;
  double squares_ = 0.0;
  double farthest_ = 0.0;
};

void addUncertainty(const std::vector<double>& values, FigureSummary& summary) {
  const auto mean = meanUncertainty(values);
  if (!mean) return;
  summary.sd_mean = mean->sd;
  summary.low95 = mean->low95;
  summary.high95 = mean->high95;
}

/// The figures of the pairs that count, detected or refined, and the positions of the pairs in the list.
struct Counted {
  std::vector<const std::vector<Figure>*> figures;
  std::vector<std::size_t> indices;
};

/// The values of one entry.
void summarise(const Counted& counted, std::size_t figure, std::size_t entry, std::vector<FigureSummary>& list) {
  FigureSummary summary;
  Accumulator accumulator(summary);
  std::vector<double> values;
  for (std::size_t k = 0; k < counted.figures.size(); ++k) {
    const Figure& measured = (*counted.figures[k])[figure];
    if (entry >= measured.values.size()) continue;
    const double value = measured.values[entry];
    if (std::isfinite(value)) {
      accumulator.add(value, counted.indices[k]);
      values.push_back(value);
    }
    summary.name = entryName(measured, entry);
    summary.unit = measured.unit;
  }
  accumulator.finish();
  addUncertainty(values, summary);
  if (summary.count > 0) list.push_back(summary);
}

std::vector<FigureSummary> summaryOf(const Counted& counted) {
  std::vector<FigureSummary> list;
  if (counted.figures.empty()) return list;
  for (std::size_t figure = 0; figure < counted.figures[0]->size(); ++figure) {
    std::size_t entries = 0;
    for (const auto* figures : counted.figures) entries = std::max(entries, (*figures)[figure].values.size());
    for (std::size_t entry = 0; entry < entries; ++entry) summarise(counted, figure, entry, list);
  }
  return list;
}

}  // namespace

std::string entryName(const Figure& figure, std::size_t entry) {
  return figure.is_list ? fmt::format("{}[{}]", figure.name, entry) : std::string(figure.name);
}

std::vector<FigureSummary> summaryOf(const std::vector<PairCheck>& pairs) {
  Counted counted;
  for (const PairCheck& pair : pairs) {
    if (!pair.finished) continue;
    counted.figures.push_back(&pair.figures);
    counted.indices.push_back(pair.index);
  }
  return summaryOf(counted);
}

std::vector<FigureSummary> refinedSummaryOf(const std::vector<PairCheck>& pairs) {
  Counted counted;
  for (const PairCheck& pair : pairs) {
    if (!pair.finished || !pair.refined) continue;
    counted.figures.push_back(&pair.refined->figures);
    counted.indices.push_back(pair.index);
  }
  return summaryOf(counted);
}

}  // namespace polarline
