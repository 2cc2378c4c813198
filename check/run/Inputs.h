#pragma once

// IWYU pragma: begin_exports
#include "check/run/BoardInput.h"
#include "check/run/CalibrationInput.h"
#include "check/run/CamerasOf.h"
#include "check/run/PolarInput.h"
#include "check/run/Settings.h"
// IWYU pragma: end_exports

/// The inputs of a run, read as the exports read them. What an export would take in silence, although no figure can
/// come of it, is refused here.
