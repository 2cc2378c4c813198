#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

#include "diagnose/warnings/Codes.h"
#include "diagnose/warnings/Judges.h"
#include "diagnose/warnings/Thresholds.h"
#include "platform/Median.h"
#include "platform/PlainNumber.h"
#include "polar/results/FigureList.h"

namespace diagnose {
namespace {

/// What is measured of the raw pair, where a fisheye's coefficients are taken for Brown's.
constexpr std::array kOfRawPair = {FigureGroup::kResiduals, FigureGroup::kTriDis,     FigureGroup::kDistances,
                                   FigureGroup::kAlignment, FigureGroup::kProjection, FigureGroup::kPose,
                                   FigureGroup::kSpace};

bool isOfRawPair(const std::string& name) {
  bool is_of_it = false;
  figure_list::forEach([&](const auto& figure) {
    if (name == figure.name) is_of_it = std::ranges::count(kOfRawPair, figure.kGroup) != 0;
  });
  return is_of_it;
}

/// Mean size of normal values in standard deviations.
constexpr double kMeanOfNormal = 0.7979;

template <typename ValueOf>
std::optional<double> middleOf(const Looks& looks, const ValueOf& valueOf) {
  std::vector<double> values;
  for (const PairLook& pair : looks) {
    if (const std::optional<double> value = valueOf(pair)) values.push_back(*value);
  }
  if (values.empty()) return std::nullopt;
  return rank::median(std::move(values));
}

std::optional<polarline::Warning> fisheye(const SetFacts& facts, const Looks& looks, const AskedLimits& limits) {
  if (facts.model != LensModel::kFisheye) return std::nullopt;
  const auto judged = std::ranges::find_if(limits.figures, isOfRawPair);
  const auto off = middleOf(looks, [](const PairLook& pair) { return pair.raw_offset; });
  if (judged == limits.figures.end() || !off || !(*off > thresholds::kFisheyeOffset)) return std::nullopt;
  return warning(
      "fisheye_raw_pair",
      fmt::format("A limit judges {}, which takes the coefficients of the fisheyes for Brown's: that moves the "
                  "dots by {:.3g} % of their distance",
                  *judged, 100.0 * *off));
}

std::optional<polarline::Warning> noiseFloor(const Looks& looks, const AskedLimits& limits) {
  const auto noise = middleOf(looks, [](const PairLook& pair) { return pair.row_noise; });
  const auto rows = middleOf(looks, [](const PairLook& pair) -> std::optional<double> {
    const auto found = pair.figures.find("dy_means");
    return found == pair.figures.end() ? std::nullopt : std::optional(found->second);
  });
  if (!noise || !rows) return std::nullopt;
  const double floor = kMeanOfNormal * *noise;
  if (limits.most_row && *limits.most_row < floor)
    return warning("noise_floor", fmt::format("A limit wants dy_means up to {} pixels; the noise of the dots' "
                                              "centres alone makes {}",
                                              plain::rounded(*limits.most_row, 3), plain::rounded(floor, 3)));
  if (*noise < thresholds::kRowNoise || *rows > thresholds::kNoiseShare * floor) return std::nullopt;
  return warning("noise_floor", fmt::format("dy_means is {} pixels; the noise of the dots' centres alone makes {}",
                                            plain::rounded(*rows, 3), plain::rounded(floor, 3)));
}

}  // namespace

Warnings judgeFigures(const SetFacts& facts, const Looks& looks, const AskedLimits& limits) {
  Warnings warnings;
  for (const auto& one : {fisheye(facts, looks, limits), noiseFloor(looks, limits)}) {
    if (one) warnings.push_back(*one);
  }
  return warnings;
}

}  // namespace diagnose
