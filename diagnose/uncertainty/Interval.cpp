#include "diagnose/uncertainty/Interval.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

double quantileOf(const std::vector<double>& ascending, double part) {
  const double place = part * static_cast<double>(ascending.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, ascending.size() - 1);
  const double share = place - static_cast<double>(below);
  return (1.0 - share) * ascending[below] + share * ascending[above];
}

std::optional<polarline::FigureUncertainty> uncertaintyOf(RepeatedFigure figure) {
  std::vector<double>& values = figure.values;
  const auto is_number = [](double value) { return std::isfinite(value); };
  if (!is_number(figure.seen) || !std::ranges::all_of(values, is_number)) return std::nullopt;
  std::sort(values.begin(), values.end());
  const auto count = static_cast<double>(values.size());
  const double mean = std::accumulate(values.begin(), values.end(), 0.0) / count;
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  const double below = quantileOf(values, 0.975) - mean + 0.5 * figure.step;
  const double above = mean - quantileOf(values, 0.025) + 0.5 * figure.step;
  return polarline::FigureUncertainty{figure.name, std::sqrt(squares / (count - 1.0)),
                                      std::clamp(figure.seen - below, 0.0, figure.most),
                                      std::clamp(figure.seen + above, 0.0, figure.most)};
}
