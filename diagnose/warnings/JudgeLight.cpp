#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <optional>

#include "diagnose/warnings/Findings.h"
#include "diagnose/warnings/Judges.h"
#include "diagnose/warnings/Thresholds.h"

namespace diagnose {
namespace {

using polarline::PictureQuality;

/// What there is to say of a picture, and how much it weighs.
struct Said {
  double weight = 0.0;
  std::string text;
};
using Look = std::function<std::optional<Said>(const PictureQuality&)>;

double bright(const PictureQuality& q) { return std::max(q.dot, q.ground); }

std::optional<Said> saturated(const PictureQuality& q) {
  if (!(q.saturated > thresholds::kSaturated)) return std::nullopt;
  return Said{q.saturated, fmt::format("{:.1f} % of the pixels around the dots are at the largest value, {:.0f}",
                                       100.0 * q.saturated, q.full_scale)};
}

std::optional<Said> dark(const PictureQuality& q) {
  if (!(bright(q) < thresholds::kDark * q.full_scale)) return std::nullopt;
  return Said{-bright(q), fmt::format("The bright parts have the grey {:.0f} of {:.0f}", bright(q), q.full_scale)};
}

std::optional<Said> faint(const PictureQuality& q) {
  if (dark(q)) return std::nullopt;  // One cause.
  const double in_noise = std::abs(q.ground - q.dot) / q.noise;
  const bool is_small = q.contrast < thresholds::kContrast;
  if (!is_small && !(in_noise < thresholds::kContrastInNoise)) return std::nullopt;
  const std::string text =
      fmt::format("Dots and ground have the greys {:.0f} and {:.0f} of {:.0f}", q.dot, q.ground, q.full_scale);
  return Said{-q.contrast, is_small ? text : fmt::format("{}, with noise of {:.1f}", text, q.noise)};
}

/// A direction is one of half a turn, so that what rounds to 180 degrees is 0.
double wholeDegrees(double direction) { return std::fmod(std::round(direction), 180.0); }

std::optional<Said> smeared(const PictureQuality& q) {
  if (dark(q) || faint(q)) return std::nullopt;  // Noise makes edges look uneven.
  const double smear = std::sqrt(q.edge_width_along * q.edge_width_along - q.edge_width_across * q.edge_width_across);
  const bool is_smeared =
      smear > thresholds::kMotionSmear && q.edge_width_along > thresholds::kMotionRatio * q.edge_width_across;
  if (!is_smeared) return std::nullopt;
  return Said{smear, fmt::format("Edges are {:.1f} pixels wide in the direction of {:.0f} degrees from the rows, and "
                                 "{:.1f} pixels across it",
                                 q.edge_width_along, wholeDegrees(q.blur_direction), q.edge_width_across)};
}

std::optional<Said> blurred(const PictureQuality& q) {
  if (smeared(q) || !(q.edge_width > thresholds::kEdgeWidth)) return std::nullopt;
  return Said{q.edge_width, fmt::format("The standard deviation of the edges is {:.1f} pixels", q.edge_width)};
}

std::vector<Finding> findingsOf(const Looks& looks, const Look& look) {
  std::vector<Finding> findings;
  for (const PairLook& pair : looks) {
    for (const int side : {0, 1}) {
      if (auto said = look(pair.sides.at(static_cast<std::size_t>(side)).quality))
        findings.push_back({pair.index, side, said->weight, std::move(said->text)});
    }
  }
  return findings;
}

}  // namespace

Warnings judgeLight(const Looks& looks) {
  struct Entry {
    const char* code;
    std::optional<Said> (*look)(const PictureQuality&);
  };
  Warnings warnings;
  for (const Entry& entry : {Entry{"saturated", saturated}, Entry{"too_dark", dark}, Entry{"low_contrast", faint},
                             Entry{"blurred", blurred}, Entry{"motion_blur", smeared}}) {
    if (auto one = told(entry.code, findingsOf(looks, entry.look), looks.size())) warnings.push_back(std::move(*one));
  }
  return warnings;
}

}  // namespace diagnose
