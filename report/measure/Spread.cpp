#include "report/measure/Spread.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace polarline {
namespace {

constexpr double kMostOfThem = 0.95;

/// Of sorted values, between two of them in proportion.
double quantile(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return std::lerp(sorted[below], sorted[above], place - static_cast<double>(below));
}

double meanOf(const std::vector<double>& values) {
  double sum = 0.0;
  for (const double value : values) sum += value;
  return sum / static_cast<double>(values.size());
}

double sdOf(const std::vector<double>& values, double mean) {
  if (values.size() < 2) return Spread::kNone;
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

}  // namespace

Spread spreadOf(const std::vector<double>& values) {
  std::vector<double> sorted;
  std::ranges::copy_if(values, std::back_inserter(sorted), [](double value) { return std::isfinite(value); });
  Spread spread;
  spread.count = sorted.size();
  if (sorted.empty()) return spread;
  spread.mean = meanOf(sorted);
  spread.sd = sdOf(sorted, spread.mean);
  std::ranges::sort(sorted);
  spread.min = sorted.front();
  spread.max = sorted.back();
  spread.median = quantile(sorted, 0.5);
  for (double& value : sorted) value = std::abs(value);
  std::ranges::sort(sorted);
  spread.mean_abs = meanOf(sorted);
  spread.p95_abs = quantile(sorted, kMostOfThem);
  return spread;
}

std::vector<std::size_t> farthestOf(const std::vector<double>& values, std::size_t most) {
  std::vector<std::size_t> places;
  for (std::size_t k = 0; k < values.size(); ++k) {
    if (std::isfinite(values[k])) places.push_back(k);
  }
  std::ranges::stable_sort(places, std::ranges::greater(), [&](std::size_t k) { return std::abs(values[k]); });
  places.resize(std::min(places.size(), most));
  return places;
}

}  // namespace polarline
