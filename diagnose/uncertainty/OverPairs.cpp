#include "diagnose/uncertainty/OverPairs.h"

#include <algorithm>
#include <boost/math/distributions/normal.hpp>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>
#include <cstdint>
#include <numeric>

#include "diagnose/uncertainty/Interval.h"
#include "diagnose/uncertainty/SeededRandom.h"

namespace {

constexpr std::uint64_t kSeed = 20'251;

/// Few values need many draws, as their quantiles are taken far out.
std::size_t drawsFor(std::size_t values) {
  constexpr std::size_t kMost = 20'000;
  constexpr std::size_t kLeast = 2'000;
  constexpr std::size_t kValues = 400'000;
  return std::clamp(kValues / values, kLeast, kMost);
}

double meanOf(const std::vector<double>& values) {
  return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

/// Ascending means of values drawn with replacement.
std::vector<double> drawnMeans(const std::vector<double>& values) {
  SeededRandom random(kSeed);
  std::vector<double> means(drawsFor(values.size()));
  for (double& mean : means) {
    double sum = 0.0;
    for (std::size_t k = 0; k < values.size(); ++k) sum += values[random.below(values.size())];
    mean = sum / static_cast<double>(values.size());
  }
  std::sort(means.begin(), means.end());
  return means;
}

/// Where the 2.5 % quantile of so many values is to be taken.
double lowPart(double count) {
  const double t = boost::math::quantile(boost::math::students_t(count - 1.0), 0.975);
  return boost::math::cdf(boost::math::normal(), -t * std::sqrt(count / (count - 1.0)));
}

}  // namespace

std::optional<polarline::FigureUncertainty> meanUncertainty(const std::vector<double>& values) {
  if (values.size() < kLeastPairsOfMean) return std::nullopt;
  if (!std::ranges::all_of(values, [](double value) { return std::isfinite(value); })) return std::nullopt;
  const auto count = static_cast<double>(values.size());
  const double mean = meanOf(values);
  double squares = 0.0;
  for (const double value : values) squares += (value - mean) * (value - mean);
  const std::vector<double> means = drawnMeans(values);
  const double part = lowPart(count);
  return polarline::FigureUncertainty{
      {}, std::sqrt(squares / (count - 1.0) / count), quantileOf(means, part), quantileOf(means, 1.0 - part)};
}
