#pragma once

#include <string>
#include <vector>

#include "diagnose/warnings/PictureChange.h"

namespace diagnose {

/// What would let a board that does not meet pictures meet them.
struct Explained {
  std::string text;          ///< "as if the calibration were of pictures 2 times as large"; empty: nothing does.
  bool is_board = false;     ///< It is the description of the board.
  double rms = 0.0;          ///< With it, over all pictures, pixels of theirs.
  std::vector<double> each;  ///< The same of each picture.
  bool is_mirror = false;    ///< It turns pictures or the lens's middle over.
};

/// Tries what commonly goes wrong, each with all of the pictures alike: a calibration of larger or smaller, mirrored,
/// turned or cropped pictures, a board whose rows stand apart otherwise. `most`: root mean square that explains,
/// pixels.
Explained explainMisfit(const std::vector<SeenBoard>& pictures, double most);

/// "The board through the lens misses the dots by 0.8 pixels (root mean square)".
std::string missingText(double rms);
/// Behind what is wrong, what would mend it.
std::string meetingText(const std::string& wrong, const Explained& explained);

}  // namespace diagnose
