#pragma once

#include "check/run/Correcting.h"
#include "check/run/RunInputs.h"
#include "check/run/SeenPairs.h"
#include "polarline/check.h"

namespace polarline {

/// Says why the rows of a run that has figures differ, and writes the corrected calibration where the options ask for
/// one. Throws `OutputError` where it can't be written.
void diagnose(const RunInputs& inputs, const CheckOptions& options, const SeenPairs& seen, const MeanRow& rows,
              Check& check);

}  // namespace polarline
