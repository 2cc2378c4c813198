#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "polarline/check.h"

namespace polarline {

/// A limit: which number of a check has to stand how to which bound.
struct Limit {
  enum class Comparison : std::uint8_t { kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

  std::string text;                  ///< As it was given.
  std::string figure;                ///< A name of `limitNames()`.
  bool is_refined = false;           ///< Of the refined figures.
  std::optional<std::size_t> entry;  ///< Of a list; without it each entry has to keep the limit.
  std::string statistic;             ///< "mean", "sd", "min" or "max" over the pairs; empty: each pair.
  bool is_absolute = false;
  Comparison comparison = Comparison::kLessOrEqual;
  double bound = 0.0;
};

/// Parses `FIGURE OP VALUE`: `dy_means<=0.1`, `|tri_dis[0]| <= 0.5`, `summary.dy_means.mean < 0.1`, `finished >= 3`,
/// `refined.dy_means < 0.05`, `summary.refined.dy_means.mean < 0.02`.
/// Throws `InputError`.
Limit parseLimit(const std::string& text);

/// The figure or entry that the limit judges in its own words: `refined.dy_means`, `tri_dis[0]`.
std::string judgedName(const Limit& limit);

/// Whether the limit says what a number has to stay below.
bool isUpper(const Limit& limit);

/// Whether the number keeps the limit; what is not a number does not.
bool holds(const Limit& limit, double value);

}  // namespace polarline
