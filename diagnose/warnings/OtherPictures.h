#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <vector>

#include "diagnose/warnings/BoardPlace.h"

namespace diagnose {

/// What would let a board that does not meet a picture meet it.
struct Explained {
  std::string text;       ///< "as if the calibration were of pictures 2 times as large"; empty: nothing does.
  bool is_board = false;  ///< It is the description of the board.
  double rms = 0.0;       ///< With it, pixels of the picture.
};

/// Tries what commonly goes wrong: a calibration of larger or smaller, mirrored, turned or cropped pictures, a board
/// whose rows stand apart otherwise. `most`: root mean square that explains, pixels.
Explained explainMisfit(const CalibratedCamera& camera, const std::vector<BoardSight>& sights, const cv::Size& picture,
                        double most);

}  // namespace diagnose
