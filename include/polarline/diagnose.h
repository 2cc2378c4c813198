#pragma once

#include <optional>
#include <string>
#include <vector>

#include "polarline/calibration.h"

/// What the measurements of a set say about the cameras that took its pictures. A fit of the full model to the row
/// differences with the weights of Huber (1964), then of Tukey (Beaton and Tukey 1974). docs/how_it_measures/causes.md.
namespace polarline {

/// A physical misalignment of the right camera against the left that would make the row differences that were seen:
/// what the cameras that took the pictures have more than the calibration says. In the frame of the rectified left
/// camera (x right, y down, z forward), for points of the rectified right frame:
///   X_true = Rz(rotation_z) Rx(rotation_x) Ry(rotation_y) (X_calibrated + (0, baseline_y, baseline_z)).
struct Cause {
  /// "rotation_x", "rotation_y", "rotation_z", "focal_ratio" (right by left, less 1), "row_offset" (of the principal
  /// point), "baseline_y", "baseline_z" or "k1" (first radial coefficient of the lens).
  std::string name;
  double value = 0.0;
  double sd = 0.0;     ///< Standard error, of the same unit; of a cause in a group that of not knowing which it is.
  std::string unit;    ///< "deg", "", "px", "board unit".
  double share = 0.0;  ///< Part of the squared rows that it explains (Shapley 1953). Below 0: it hides another.
  std::string text;    ///< A sentence without its full stop.
  int group = 0;       ///< Causes of one number above 0 are not told apart by the pictures; 0: told apart from all.
};

/// Why the rows differ. Without causes the text says why none is told.
struct Diagnosis {
  std::vector<Cause> causes;
  std::string text;           ///< All of it in a few sentences.
  double rows_before = 0.0;   ///< Mean absolute row difference as seen, pixels; not a number without dots.
  double rows_after = 0.0;    ///< The same predicted with the causes taken out.
  bool pattern_left = false;  ///< What remains after that is alike in neighbouring dots: something else is the matter.
  /// The calibration with the causes taken out; none without causes, or with a polynomial lens, whose tables it can't
  /// hold (`CheckOptions::write_corrected` writes those).
  std::optional<Calibration> corrected;
};

}  // namespace polarline
