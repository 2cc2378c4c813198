#pragma once

#include "check/run/PairLook.h"
#include "check/run/RunInputs.h"
#include "polarline/check.h"

namespace polarline {

/// Says why the rows of a run that has figures differ, and writes the corrected calibration where the options ask for
/// one. Throws `OutputError` where it can't be written.
/// Inputs that the pairs gave reason to warn of as wrong leave nothing to diagnose.
void diagnose(const RunInputs& inputs, const CheckOptions& options, const PairLook& pairs, Check& check);

}  // namespace polarline
