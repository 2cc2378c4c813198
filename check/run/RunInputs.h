#pragma once

#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "camera/LensModel.h"
#include "check/judge/Limit.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polarline/check.h"

namespace polarline {

/// All that a check reads but for the pictures.
struct RunInputs {
  Set set;
  std::vector<Limit> limits;  ///< Of the options, then of the set.
  PolarConfig config;
  StereoCalibParams calib;    ///< Of the cameras; zeros for pairs that were rectified elsewhere.
  RectifiedParams rectified;  ///< Of such pairs.
  BoardGroundTruth board;

  bool areRectified() const { return !set.rectified.empty(); }
  bool areFrames() const { return config.frame_work != 0 && !areRectified(); }
  /// Of the pictures as they are: of pairs that were rectified elsewhere two pinholes side by side.
  StereoCalibParams cameras() const;
  /// Of these cameras.
  LensModel model() const;
};

/// Reads the files of a set and fills what a check tells of them. Throws `InputError`.
RunInputs readInputs(const Set& set, const CheckOptions& options, Check& check);

}  // namespace polarline
