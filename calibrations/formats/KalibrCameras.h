#pragma once

#include <vector>

#include "calibrations/document/Node.h"

namespace calibrations {

/// cam0, cam1 and so on, as far as they follow each other.
std::vector<Node> kalibrCameras(const Node& root);

}  // namespace calibrations
