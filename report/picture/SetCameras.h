#pragma once

#include <optional>
#include <string>

#include "report/measure/KnownCameras.h"
#include "report/read/Json.h"

namespace polarline {

/// The cameras of a check; the tables of polynomial lenses, which its document does not have, from the calibration
/// where that still has its hash. None where they are not known.
/// @param document As it was read: its paths lead to the files.
/// @param path     Of the document.
std::optional<KnownCameras> setCameras(const Json& document, const std::string& path);

}  // namespace polarline
