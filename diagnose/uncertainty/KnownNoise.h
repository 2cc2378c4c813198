#pragma once

#include <vector>

#include "diagnose/uncertainty/CentreNoise.h"
#include "polarline/refine.h"

/// A draw of the noise of centres whose covariances are known: normal, each dot for itself. Dots without a covariance
/// have none.
CentreNoise knownNoise(const std::vector<polarline::RefinedDot>& dots, SeededRandom& random);
