#include "Tallowfen/src/markers/SelectBigDots.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/LargestFirst.h"
#include "platform/Console.h"

namespace kestrune {
namespace {

constexpr std::size_t kBigDots = 4;
constexpr std::size_t kLooks = 8;

/// Positions among the eight largest whose size is within a seventh of the four largest's mean, four at most.
std::vector<std::size_t> candidatesAmong(const std::vector<Ellipse>& sorted) {
  const double sum = sorted[0].semi_a + sorted[1].semi_a + sorted[2].semi_a + sorted[3].semi_a;
  const auto mean = static_cast<float>(sum / static_cast<double>(kBigDots));
  const float tolerance = mean / 7.0F;
  std::vector<std::size_t> candidates;
  for (std::size_t i = 0; i < std::min(kLooks, sorted.size()) && candidates.size() < kBigDots; ++i) {
    if (std::abs(sorted[i].semi_a - mean) <= tolerance) candidates.push_back(i);
  }
  return candidates;
}

}  // namespace

bool SelectBigDots(std::vector<Ellipse>& dots, std::vector<Ellipse>& bigs, MarkerSizes& sizes) {
  if (bigs.empty() || dots.empty()) return false;
  std::vector<Ellipse> sorted = dots;
  sorted.insert(sorted.end(), bigs.begin(), bigs.end());
  sortLargestFirst(sorted);
  if (sorted.size() < kBigDots) return false;
  const std::vector<std::size_t> candidates = candidatesAmong(sorted);
  if (candidates.size() < kBigDots) {
    console::err() << "Not enough big_black_dots\n";
    return false;
  }
  dots.clear();
  bigs.clear();
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    const bool chosen = std::find(candidates.begin(), candidates.end(), i) != candidates.end();
    (chosen ? bigs : dots).push_back(sorted[i]);
  }
  sizes = {false, false, true};
  return true;
}

}  // namespace kestrune
