#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "polarline/uncertainty.h"

/// With fewer pairs there is nothing to draw from.
inline constexpr std::size_t kLeastPairsOfMean = 5;

/// How certain the mean of a figure over the pairs is, as a statement on more pairs of the kind: a bootstrap over the
/// pairs (Efron 1979). Its quantiles are taken as far out as Student's t and the divisor n - 1 ask for, as those of so
/// few values are too narrow otherwise (Hesterberg 2015). None with fewer than five values, or one that is not a
/// number. The same values give the same numbers; `name` stays empty.
std::optional<polarline::FigureUncertainty> meanUncertainty(const std::vector<double>& values);
