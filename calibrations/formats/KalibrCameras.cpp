#include "calibrations/formats/KalibrCameras.h"

namespace calibrations {

std::vector<Node> kalibrCameras(const Node& root) {
  std::vector<Node> cameras;
  while (std::optional<Node> camera = root.find("cam" + std::to_string(cameras.size()))) {
    if (!camera->isMap()) break;
    cameras.push_back(*std::move(camera));
  }
  return cameras;
}

}  // namespace calibrations
