#pragma once

#include <optional>

#include "diagnose/SeenSet.h"
#include "polarline/diagnose.h"

/// What is told of a set, and its calibration with the causes taken out, tables of polynomial lenses included; none
/// without causes.
struct CausesTold {
  polarline::Diagnosis diagnosis;
  std::optional<StereoCalibParams> corrected;
};

/// Why the rows of a set differ. The same for the same set, thread-safe.
CausesTold diagnoseCauses(const SeenSet& set);
