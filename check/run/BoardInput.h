#pragma once

#include <string>
#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "check/set/InputFile.h"
#include "input/PolarConfig.h"
#include "polarline/check.h"

namespace polarline {

/// True positions of the dots by id. Throws for a line that is not three numbers, unless it is empty.
BoardGroundTruth readBoardTruth(const InputFile& file);

/// Warns of evaluations that want true positions which the set does not have.
void warnOfBoardTruth(const std::string& path, const PolarConfig& config, const BoardInfo& board,
                      std::vector<Warning>& warnings);

/// Warns where the target, the polar configuration and the true positions have other distances between neighbours.
void warnOfSteps(const Set& set, const PolarConfig& config, const BoardInfo& board, const BoardGroundTruth& truth,
                 std::vector<Warning>& warnings);

/// Also proves that the detector can be configured from it.
BoardInfo readBoardInfo(const InputFile& file);

}  // namespace polarline
