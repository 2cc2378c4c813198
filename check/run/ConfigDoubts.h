#pragma once

#include <string>
#include <vector>

#include "check/run/PolarInput.h"
#include "input/StereoCalibParams.h"
#include "polarline/warning.h"

/// What a polar configuration leaves unsaid: the library then takes a default without a word.
namespace polarline {

/// Of a configuration that names no evaluation at all: the board check is on by itself.
void warnOfNoEvaluation(const std::string& path, const PolarInput& polar, std::vector<Warning>& warnings);

/// Of the lens model, where the configuration does not name it or it leaves coefficients of the calibration out.
void warnOfLens(const std::string& path, const PolarInput& polar, const std::string& calibration_path,
                const StereoCalibParams& calib, std::vector<Warning>& warnings);

/// Whether rows are compared in pictures turned by a quarter (x_y), though the cameras stand side by side.
bool turnsRowsAway(const PolarConfig& config, const StereoCalibParams& calib);

void warnOfTurn(const std::string& path, const PolarInput& polar, const StereoCalibParams& calib,
                std::vector<Warning>& warnings);

}  // namespace polarline
