#pragma once

#include "diagnose/SeenSet.h"
#include "polarline/diagnose.h"

/// Why the rows of a set differ. The same for the same set, thread-safe.
polarline::Diagnosis diagnoseCauses(const SeenSet& set);
