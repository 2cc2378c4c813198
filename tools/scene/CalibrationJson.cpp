#include "tools/scene/CalibrationJson.h"

#include <nlohmann/json.hpp>

#include "tools/scene/CalibrationNumbers.h"

namespace scene {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::array<const char*, 12> kNames{"Fx", "Fy", "Cx", "Cy", "K1", "K2", "K3", "K4", "K5", "K6", "P1", "P2"};

Json cameraJson(const CameraNumbers& camera) {
  Json json;
  for (std::size_t k = 0; k < kNames.size(); ++k) json[kNames.at(k)] = camera.intrinsics.at(k);
  return json;
}

}  // namespace

std::string calibrationJson(const StereoRig& rig) {
  const CalibrationNumbers numbers = calibrationNumbers(rig);
  const auto& e = numbers.extrinsics;
  Json json;
  json["IR_L"] = cameraJson(numbers.left);
  json["IR_R"] = cameraJson(numbers.right);
  json["IR_R"]["Rotate"] = {{"RX", e[0]}, {"RY", e[1]}, {"RZ", e[2]}};
  json["IR_R"]["Translate"] = {{"TX", e[3]}, {"TY", e[4]}, {"TZ", e[5]}};
  json["RGB"] = json["IR_L"];
  return json.dump(4) + "\n";
}

}  // namespace scene
