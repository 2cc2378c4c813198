#pragma once

#include <vector>

#include "PolarLinePrecision/BoardRecords.h"
#include "PolarLinePrecision/CalibrationRecords.h"
#include "camera/LensModel.h"
#include "check/judge/Limit.h"
#include "check/set/InputFiles.h"
#include "input/PolarConfig.h"
#include "input/StereoCalibParams.h"
#include "polarline/check.h"

namespace polarline {

/// All that a check reads but for the pictures.
struct RunInputs {
  Set set;                    ///< As people know it.
  InputFiles files;           ///< What is read in place of its files.
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
  /// The description of the board, for the library.
  std::string target() const { return files.of(set.target).path; }
};

/// The completed set, without a list where the options have the pictures.
Set opened(const Set& named, const CheckOptions& options);

/// Reads the files of a set and fills what a check tells of them. Throws `InputError`; what was read up to then stays.
void readInputs(const Set& set, const CheckOptions& options, RunInputs& inputs, Check& check);

}  // namespace polarline
