#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "diagnose/quality/Coverage.h"
#include "diagnose/warnings/Codes.h"
#include "diagnose/warnings/Findings.h"
#include "diagnose/warnings/Judges.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/Median.h"
#include "platform/PlainNumber.h"

namespace diagnose {
namespace {

std::vector<Finding> smallBoards(const Looks& looks) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    for (const int side : {0, 1}) {
      const double share = pair.sides.at(static_cast<std::size_t>(side)).quality.board_share;
      if (!(share < thresholds::kBoardShare)) continue;
      findings.push_back(
          {pair.index, side, -share, fmt::format("The dots span {:.1f} % of the picture", 100.0 * share)});
    }
  }
  return findings;
}

std::optional<polarline::Warning> coverage(const Looks& looks) {
  if (looks.size() < thresholds::kCoveragePairs) return std::nullopt;
  std::array<Coverage, 2> covered;
  bool has_outline = false;
  for (const PairLook& pair : looks) {
    for (const std::size_t side : {0U, 1U}) {
      covered.at(side).add(pair.sides.at(side).outline, pair.sides.at(side).size);
      has_outline = has_outline || !pair.sides.at(side).outline.empty();
    }
  }
  const bool is_left = covered[0].share() <= covered[1].share();
  const double share = std::min(covered[0].share(), covered[1].share());
  if (!has_outline || share >= thresholds::kCoverage) return std::nullopt;
  return warning("low_coverage", fmt::format("All {} pairs together show dots in {:.0f} % of the {} pictures",
                                             looks.size(), 100.0 * share, is_left ? "left" : "right"));
}

std::optional<polarline::Warning> oneDistance(const Looks& looks) {
  std::vector<double> distances;
  for (const PairLook& pair : looks) {
    if (pair.sides[0].place) distances.push_back(cv::norm(pair.sides[0].place->T));
  }
  if (distances.size() < thresholds::kLeastPairs) return std::nullopt;
  const auto [least, most] = std::ranges::minmax(distances);
  if (most - least > thresholds::kSameDistance * 0.5 * (most + least)) return std::nullopt;
  return warning("one_distance", fmt::format("In all {} pairs the board's first dot is {} to {} board units away",
                                             distances.size(), plain::rounded(least, 4), plain::rounded(most, 4)));
}

/// A figure and how far, in its own unit, a pair may be from the others without a word.
struct Watched {
  const char* name;
  double free;
};

std::optional<Finding> farthest(const Looks& looks, const Watched& watched) {
  std::vector<double> values;
  for (const PairLook& pair : looks) {
    const auto found = pair.figures.find(watched.name);
    if (found != pair.figures.end() && std::isfinite(found->second)) values.push_back(found->second);
  }
  if (values.size() < thresholds::kLeastPairs) return std::nullopt;
  const double middle = rank::median(values);
  const double most = std::max({thresholds::kStandsOutTimes * middle, middle + watched.free,
                                middle + thresholds::kStandsOutSpreads * rank::spreadAround(values, middle)});
  std::optional<Finding> worst;
  for (const PairLook& pair : looks) {
    const auto found = pair.figures.find(watched.name);
    if (found == pair.figures.end() || !(found->second > most)) continue;
    if (worst && worst->weight >= found->second) continue;
    worst = Finding{pair.index, Finding::kPair, found->second,
                    fmt::format("{} is {} in pair {}, and {} in the middle of all", watched.name,
                                plain::rounded(found->second, 3), pair.index, plain::rounded(middle, 3))};
  }
  return worst;
}

std::optional<polarline::Warning> standsOut(const Looks& looks) {
  for (const Watched& watched : {Watched{"dy_means", 0.05}, Watched{"tri_mean", 0.05}, Watched{"dis_rms", 0.0}}) {
    if (const auto worst = farthest(looks, watched))
      return warning("pair_stands_out", worst->text, static_cast<int>(worst->pair));
  }
  return std::nullopt;
}

}  // namespace

Warnings judgeSet(const Looks& looks) {
  Warnings warnings;
  const auto small = told("board_small", smallBoards(looks), looks.size());
  // A board that is small covers little: one cause.
  for (const auto& one : {small, small ? std::nullopt : coverage(looks), oneDistance(looks), standsOut(looks)}) {
    if (one) warnings.push_back(*one);
  }
  return warnings;
}

}  // namespace diagnose
