#pragma once

#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polar/run/PolarCore.h"
#include "polarline/check.h"

/// The inputs of a run, read as the exports read them. What an export would take in silence, although no figure can
/// come of it, is refused here.
namespace polarline {

/// The polar configuration of a set, with the keys that are set for this run only.
PolarConfig readPolar(const std::string& path, const std::vector<std::string>& settings,
                      std::vector<Warning>& warnings);

StereoCalibParams readCalibration(const std::string& path);

/// The five numbers of pairs that were rectified elsewhere: focal, baseline, cx, cy, disparity offset, by commas;
/// lines that begin with # are left out.
RectifiedParams readRectified(const std::string& path);

/// True positions of the dots by id. Throws for a line that is not three numbers, unless it is empty.
BoardGroundTruth readBoardTruth(const std::string& path);

/// Warns of evaluations that want true positions which the set does not have.
void warnOfBoardTruth(const std::string& path, const PolarConfig& config, const BoardInfo& board,
                      std::vector<Warning>& warnings);

/// Every key with its value, in the order of the list of keys.
std::vector<Setting> settingsOf(const PolarConfig& config);

/// Also proves that the detector can be configured from it.
BoardInfo readBoard(const std::string& target);

Cameras camerasOf(int type, const StereoCalibParams& calib);
Cameras camerasOf(const RectifiedParams& rectified);

}  // namespace polarline
