#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "report/read/Place.h"

namespace polarline {

/// The dots of a pair as a document lists them: one entry an id in every list, not a number where it has null. A list
/// is as long as `id`, or empty where the document has none.
struct DotLists {
  std::vector<std::int32_t> id;
  std::vector<double> left_x, left_y, right_x, right_y;  ///< Pixels of the pictures.
  std::vector<double> dy;                                ///< Row difference, left less right, pixels.
  std::vector<double> residual;                          ///< Pixels.
  std::vector<double> x, y, z;                           ///< Left camera, board units.
  std::vector<double> rectified_left_x, rectified_left_y, rectified_right_x, rectified_right_y;
  std::vector<double> left_sd_x, left_sd_y, right_sd_x, right_sd_y;  ///< Of refined centres, pixels.
  std::vector<std::string> left_state, right_state;                  ///< What became of each centre.
};

/// Reads the object `points` of a pair, or of its refined form. Throws `InputError` for lists of different lengths.
DotLists readDots(const Place& points);

}  // namespace polarline
