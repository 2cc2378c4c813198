#include "bench/Contest.h"

#include <algorithm>

#include "bench/Stopwatch.h"

namespace {

double millisecondsOf(const std::function<void()>& run) {
  const double start = processorSeconds();
  run();
  return 1000.0 * (processorSeconds() - start);
}

double between(const std::vector<double>& sorted, double share) {
  const double place = share * static_cast<double>(sorted.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, sorted.size() - 1);
  return sorted[below] + (place - static_cast<double>(below)) * (sorted[above] - sorted[below]);
}

}  // namespace

Spread spreadOf(std::vector<double> values) {
  if (values.empty()) return {};
  std::sort(values.begin(), values.end());
  return {between(values, 0.5), between(values, 0.25), between(values, 0.75)};
}

Contest::Contest(const std::vector<Contestant>& contestants, const Effort& effort) : milliseconds_(contestants.size()) {
  if (effort.warm_up) {
    for (const Contestant& contestant : contestants) contestant.run();
  }
  const double start = processorSeconds();
  while (rounds() < effort.fewest || (rounds() < effort.most && processorSeconds() - start < effort.seconds)) {
    for (std::size_t i = 0; i < contestants.size(); ++i) milliseconds_[i].push_back(millisecondsOf(contestants[i].run));
  }
}

Spread Contest::ratio(std::size_t contestant, std::size_t other) const {
  std::vector<double> ratios;
  for (std::size_t round = 0; round < rounds(); ++round) {
    ratios.push_back(milliseconds_.at(contestant)[round] / milliseconds_.at(other)[round]);
  }
  return spreadOf(ratios);
}
