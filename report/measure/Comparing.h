#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "polarline/check.h"

namespace polarline {

/// A difference between the means of two checks.
struct Difference {
  enum class Judged : std::uint8_t {
    kMore,     ///< By more than twice its standard deviation.
    kLess,     ///< The same.
    kNone,     ///< Within it: chance makes such differences.
    kUnknown,  ///< The checks have too few pairs to tell.
  };
  /// What the standard deviation is of.
  enum class Basis : std::uint8_t {
    kPairs,  ///< The scatter of the pairs, in both checks.
    kDots,   ///< In one or both that of the dots within the pairs: what changes from pair to pair is not in it.
  };
  double value = std::numeric_limits<double>::quiet_NaN();  ///< Less the first check's; not a number: not measured.
  double sd = std::numeric_limits<double>::quiet_NaN();
  Judged judged = Judged::kUnknown;
  Basis basis = Basis::kPairs;
};

/// A figure in several checks: an entry a check.
struct ComparedFigure {
  std::string name;
  std::string unit;
  std::vector<double> mean, low95, high95;  ///< Not a number where nobody measured it.
  std::vector<Difference> differences;      ///< Against the first check.
};

/// Every figure that the pairs of any of the checks measured, of lists each entry, in the order of the first check that
/// has it; behind them those from refined centres, "refined.dy_means".
std::vector<ComparedFigure> compareFigures(const std::vector<const Check*>& checks);

/// A limit in several checks.
struct ComparedLimit {
  std::string text;
  std::vector<const LimitResult*> results;  ///< Null where a check does not have it.
};

std::vector<ComparedLimit> compareLimits(const std::vector<const Check*>& checks);

}  // namespace polarline
