#include "check/figures/Summary.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

/// The finished pairs' values of one entry.
void summarise(const std::vector<PairCheck>& pairs, std::size_t figure, std::size_t entry,
               std::vector<FigureSummary>& list) {
  FigureSummary summary;
  Accumulator accumulator(summary);
  for (const PairCheck& pair : pairs) {
    if (!pair.finished || entry >= pair.figures[figure].values.size()) continue;
    const double value = pair.figures[figure].values[entry];
    if (std::isfinite(value)) accumulator.add(value, pair.index);
    summary.name = entryName(pair.figures[figure], entry);
    summary.unit = pair.figures[figure].unit;
  }
  accumulator.finish();
  if (summary.count > 0) list.push_back(summary);
}

}  // namespace

std::string entryName(const Figure& figure, std::size_t entry) {
  return figure.is_list ? fmt::format("{}[{}]", figure.name, entry) : std::string(figure.name);
}

std::vector<FigureSummary> summaryOf(const std::vector<PairCheck>& pairs) {
  std::vector<FigureSummary> list;
  if (pairs.empty()) return list;
  for (std::size_t figure = 0; figure < pairs[0].figures.size(); ++figure) {
    std::size_t entries = 0;
    for (const PairCheck& pair : pairs) entries = std::max(entries, pair.figures[figure].values.size());
    for (std::size_t entry = 0; entry < entries; ++entry) summarise(pairs, figure, entry, list);
  }
  return list;
}

}  // namespace polarline
