#include "Tallowfen/src/markers/SelectBigDots.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>

#include "Tallowfen/src/ellipses/Ellipses.h"
#include "platform/Console.h"

namespace kestrune {
namespace {

// Some of the largest may be no dots at all; so many are tried.
constexpr std::size_t kLargestCompared = 8;
// Big dots differ by a seventh of their mean at the most.
constexpr float kToleranceDivisor = 7.0F;

/// Positions of those that are of one size: of the eight largest the first four near the mean of the four largest.
std::vector<std::size_t> candidatesAmong(const std::vector<Ellipse>& sorted) {
  const double sum = sorted[0].semi_a + sorted[1].semi_a + sorted[2].semi_a + sorted[3].semi_a;
  const auto mean = static_cast<float>(sum / static_cast<double>(kBigDotCount));
  const float tolerance = mean / kToleranceDivisor;
  std::vector<std::size_t> candidates;
  for (std::size_t i = 0; i < std::min(kLargestCompared, sorted.size()) && candidates.size() < kBigDotCount; ++i) {
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
  if (sorted.size() < kBigDotCount) return false;
  const std::vector<std::size_t> candidates = candidatesAmong(sorted);
  if (candidates.size() < kBigDotCount) {
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
