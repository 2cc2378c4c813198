#include "calibrations/formats/Formats.h"

#include <algorithm>

#include "calibrations/document/Node.h"
#include "calibrations/document/Shown.h"
#include "calibrations/formats/KalibrCameras.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

std::string allNames() {
  std::string names;
  for (const Format& format : kFormats) names += (names.empty() ? "" : ", ") + std::string(format.name);
  return names;
}

bool hasAny(const Node& node, std::initializer_list<const char*> names) { return node.find(names).has_value(); }

const char* nameOf(const Document& document) {
  const Node root(document);
  if (hasAny(root, {"IR_L", "IR_R"})) return "polarline";
  if (document.syntax == Syntax::kLiteral || root.has("lensmodel")) return "mrcal";
  if (hasAny(root, {"value0"}) || (hasAny(root, {"T_imu_cam"}) && root.has("intrinsics"))) return "basalt";
  if (!kalibrCameras(root).empty()) return "kalibr";
  if (root.has("T_BS")) return "euroc";
  const bool isRosCamera = root.has("camera_matrix") && root.has("distortion_model");
  if (isRosCamera || hasAny(root, {"projection_matrix", "rectification_matrix"})) return "ros";
  if (hasAny(root,
             {"M1", "M2", "D1", "D2", "K1", "K2", "K", "D", "R", "T", "camera_matrix", "camera_matrix_left",
              "camera_matrix_right", "cameraMatrix1", "left_camera_matrix", "rotation_matrix", "translation_vector"})) {
    return "opencv";
  }
  throw polarline::InputError(document.place, "is no calibration that is known; one of " + allNames() + " was wanted");
}

}  // namespace

const Format& formatOf(const Documents& documents, const std::string& name) {
  const std::string wanted = name.empty() ? nameOf(documents.front()) : name;
  const auto* const format = std::ranges::find(kFormats, wanted, &Format::name);
  if (format == kFormats.end()) {
    throw polarline::InputError("--format", "found " + shown(name) + "; one of " + allNames() + " was wanted");
  }
  for (const Document& each : documents) {
    if (name.empty() && nameOf(each) != wanted) {
      throw polarline::InputError(each.place, std::string("is of ") + nameOf(each) + ", the file before it of " +
                                                  wanted + "; files of one format were wanted");
    }
  }
  return *format;
}

}  // namespace calibrations
