#pragma once

#include <vector>

#include "diagnose/warnings/PairLook.h"
#include "diagnose/warnings/Watch.h"
#include "polarline/warning.h"

/// What the looks at all pairs of a run come to, a group of warnings each.
namespace diagnose {

using Looks = std::vector<PairLook>;
using Warnings = std::vector<polarline::Warning>;

/// Board, calibration and sides that do not belong to the pictures.
Warnings judgeGeometry(const SetFacts& facts, const std::optional<CalibratedPair>& cameras, const Looks& looks);
/// Dots that are missing, or none.
Warnings judgeDots(const SetFacts& facts, const Looks& looks);
/// Light, sharpness.
Warnings judgeLight(const Looks& looks);
/// Where the board stood, and a pair unlike the others.
Warnings judgeSet(const Looks& looks);
/// Figures that are judged and mean nothing.
Warnings judgeFigures(const SetFacts& facts, const Looks& looks, const AskedLimits& limits);

}  // namespace diagnose
