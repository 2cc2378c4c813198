#include "report/picture/SetCameras.h"

#include <exception>
#include <vector>

#include "check/run/CalibrationInput.h"
#include "report/picture/SetFiles.h"

namespace polarline {

std::optional<KnownCameras> setCameras(const Json& document, const std::string& path) {
  if (document["cameras"]["model"] != "poly") return knownCameras(document);
  const auto file = SetFiles(document, path).find("calibration");
  if (!file) return std::nullopt;
  try {
    std::vector<Warning> warnings;
    const KnownCameras cameras{LensModel::kPoly, readCalibration(*file, warnings)};
    return canBeRectified(cameras.calib) ? std::optional(cameras) : std::nullopt;
  } catch (const std::exception&) {
    return std::nullopt;  // A page without them is better than none.
  }
}

}  // namespace polarline
