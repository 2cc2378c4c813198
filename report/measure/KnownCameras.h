#pragma once

#include <optional>

#include "camera/LensModel.h"
#include "input/StereoCalibParams.h"
#include "report/read/Json.h"

namespace polarline {

/// The calibrated cameras of a check.
struct KnownCameras {
  LensModel model = LensModel::kBrownFive;
  StereoCalibParams calib;
};

/// Those that the document tells all of. None for polynomial lenses, whose tables it does not have, for pairs that were
/// rectified elsewhere, and for cameras that stand as no cameras can.
std::optional<KnownCameras> knownCameras(const Json& document);

/// Two cameras at different places with numbers that are numbers.
bool canBeRectified(const StereoCalibParams& calib);

}  // namespace polarline
