#pragma once

#include <cstdint>
#include <optional>

#include "calibrations/geometry/Angles.h"
#include "calibrations/geometry/Pose.h"
#include "polarline/calibration.h"

namespace calibrations {

enum class Lens : std::uint8_t { kBrown, kFisheye };

/// A camera as a format tells it.
struct SourceCamera {
  polarline::Camera camera;
  Lens lens = Lens::kBrown;
};

/// A pair as a format tells it, in the unit of the file.
struct SourcePair {
  SourceCamera left;
  SourceCamera right;
  Pose right_from_left;
  std::optional<Angles> angles;  ///< Of `right_from_left`, where the file tells them: from R they lose a digit.
  bool is_length_lost = false;   ///< The translation tells its direction only.
  double deviation = 0.0;        ///< Of the printed rotation that was farthest from one.
};

}  // namespace calibrations
