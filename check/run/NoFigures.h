#pragma once

#include <optional>

#include "check/run/RunInputs.h"
#include "polarline/check.h"

namespace polarline {

/// Of a run whose pairs are finished and have no figure, as no evaluation that could give one is on: the status that it
/// ends with. None where a pair has a figure.
std::optional<Status> nothingMeasured(const Check& check, const RunInputs& inputs);

/// Of a run without a finished pair, where a dot that an evaluation wants is none of the board's: what to mend. None
/// where there is another cause.
std::optional<Status> wantedBeyondBoard(const Check& check, const RunInputs& inputs);

}  // namespace polarline
