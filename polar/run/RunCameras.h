#pragma once

#include "polar/evaluate/PairEvaluator.h"
#include "polar/run/PolarCore.h"

/// Loads the camera values of a calibration into the core by the distortion model that its configuration names, and
/// builds matrices, rotation and translation. A `type` outside 0 to 3 loads nothing. False when the POLY model lacks a
/// table.
bool loadRunCameras(PolarCore& core, const StereoCalibParams& calib);

/// The evaluator of a run with loaded cameras.
PairEvaluator makeEvaluator(const PolarCore& core);
