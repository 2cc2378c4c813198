#pragma once

#include "polarline/detect.h"

/// Warns of ids that the board has not, or has once, and of too few dots for a run. Reads the board and the dots.
void warnOfIds(polarline::Detection& detection);
