#pragma once

#include <optional>

#include "diagnose/warnings/Judges.h"

namespace diagnose {

/// A calibration of other pictures whose board, by another pose, still meets these nearly: told where one explanation
/// takes the misfit of all pictures down strongly, those of both cameras or those of one. None where the dots' own
/// scatter, or something else, makes the misfit.
/// @param most Root mean square that an explanation must be below, pixels: what another one leaves.
std::optional<polarline::Warning> judgeCommonMisfit(const SetFacts& facts, const CalibratedPair& cameras,
                                                    const Looks& looks, double most);

}  // namespace diagnose
