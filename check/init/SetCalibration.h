#pragma once

#include <string>
#include <vector>

#include "polarline/calibration.h"

namespace init {

/// The calibration that goes into a set.
struct SetCalibration {
  polarline::Calibration calibration;  ///< Its type is that of the polar configuration, 3 for polynomial tables.
  std::string file_name;               ///< `calib.json` or `calib.bin`.
  std::string bytes;                   ///< Of that file.
  std::string format;                  ///< Of what was given.
  std::vector<polarline::Warning> warnings;
};

/// Reads the calibration of any tool, or ours, which goes into the set as it stands. Throws `InputError`.
SetCalibration setCalibration(const std::vector<std::string>& files, const polarline::ImportOptions& options);

/// Throws `InputError` for pictures of another size than the calibration tells. Where it tells none, as our JSON, the
/// middle of each lens must lie in the picture, and one far from the picture's middle is a warning.
std::vector<polarline::Warning> checkSize(const SetCalibration& set, polarline::Size picture);

/// Whether both cameras' sizes are known.
bool tellsSize(const SetCalibration& set);

/// "Brown, K1 to K3", ..., "POLY tables".
std::string modelName(int type);

}  // namespace init
