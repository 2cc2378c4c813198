#include <nlohmann/json.hpp>

#include "polarline/calibration.h"

namespace polarline {
namespace {

using Json = nlohmann::ordered_json;

Json jsonOf(const Camera& camera) {
  return {{"Fx", camera.fx},   {"Fy", camera.fy},   {"Cx", camera.cx},   {"Cy", camera.cy},
          {"K1", camera.k[0]}, {"K2", camera.k[1]}, {"K3", camera.k[2]}, {"K4", camera.k[3]},
          {"K5", camera.k[4]}, {"K6", camera.k[5]}, {"P1", camera.p1},   {"P2", camera.p2}};
}

Json rotationOf(const Calibration& calibration) {
  return {{"RX", calibration.rx}, {"RY", calibration.ry}, {"RZ", calibration.rz}};
}

Json translationOf(const Calibration& calibration) {
  return {{"TX", calibration.tx}, {"TY", calibration.ty}, {"TZ", calibration.tz}};
}

Json sizeOf(const Camera& camera) {
  if (camera.size.width == 0) return {{"width", nullptr}, {"height", nullptr}};
  return {{"width", camera.size.width}, {"height", camera.size.height}};
}

Json withSize(const Camera& camera) {
  Json json = sizeOf(camera);
  json.update(jsonOf(camera));
  return json;
}

/// Texts of files and paths may hold any bytes.
std::string textOf(const Json& json) { return json.dump(4, ' ', false, Json::error_handler_t::replace) + "\n"; }

}  // namespace

std::string calibrationJson(const Calibration& calibration) {
  Json right = jsonOf(calibration.right);
  right["Rotate"] = rotationOf(calibration);
  right["Translate"] = translationOf(calibration);
  // The library's reader wants a colour camera beside the pair, whatever it holds.
  return textOf({{"IR_L", jsonOf(calibration.left)}, {"IR_R", right}, {"RGB", Json::object()}});
}

std::string importedCalibrationJson(const ImportedCalibration& imported) {
  const Calibration& calibration = imported.calibration;
  Json extrinsics = rotationOf(calibration);
  extrinsics.update(translationOf(calibration));
  Json warnings = Json::array();
  for (const Warning& each : imported.warnings) {
    warnings.push_back({{"code", each.code}, {"text", each.text}, {"advice", each.advice}});
  }
  return textOf({{"schema", "polarline-import/1"},
                 {"format", imported.format},
                 {"type", calibration.type},
                 {"model", typeName(calibration.type)},
                 {"left", withSize(calibration.left)},
                 {"right", withSize(calibration.right)},
                 {"extrinsics", extrinsics},
                 {"baseline", baselineOf(calibration)},
                 {"warnings", warnings}});
}

}  // namespace polarline
