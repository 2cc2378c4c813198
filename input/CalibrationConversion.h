#pragma once

#include "PolarLinePrecision/CalibrationRecords.h"
#include "input/StereoCalibParams.h"

/// Between the calibration of a run and the caller's record of the same content. The two records hold their cameras in
/// opposite order and their sizes in different types.

/// Everything but the board points, which stay with the caller.
void exportCalibration(const StereoCalibParams& calib, ExportedCalibParams& exported);

/// Everything but the board points. Sizes are cut to whole pixels.
void importCalibration(const ExportedCalibParams& exported, StereoCalibParams& calib);
