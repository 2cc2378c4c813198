#include "check/run/CalibrationLook.h"

#include <fmt/format.h>

#include <initializer_list>
#include <opencv2/core/persistence.hpp>

#include "check/run/InputText.h"
#include "platform/Document.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// An object of the document, with the place where it stands.
struct Member {
  std::string place;
  cv::FileNode node;

  Member at(const char* name) const {
    return {place.ends_with(": ") ? place + name : place + "." + name, node.isMap() ? node[name] : cv::FileNode()};
  }
  bool isThere() const { return !node.empty(); }
};

std::string valueIn(const cv::FileNode& node) {
  if (node.isString()) return shownOf(static_cast<std::string>(node));
  return node.isMap() ? "an object" : "a list";
}

void requireNumbers(const Member& object, std::initializer_list<const char*> names) {
  for (const char* name : names) {
    const Member member = object.at(name);
    if (!member.isThere()) throw InputError(member.place, "is not there; a number was wanted");
    if (!member.node.isInt() && !member.node.isReal())
      throw InputError(member.place, valueIn(member.node) + " was found; a number was wanted");
  }
}

void requireCamera(const Member& camera) {
  requireNumbers(camera, {"Fx", "Fy", "Cx", "Cy", "K1", "K2", "K3", "K4", "K5", "K6", "P1", "P2"});
}

void requirePose(const Member& rotation, const Member& translation) {
  requireNumbers(rotation, {"RX", "RY", "RZ"});
  requireNumbers(translation, {"TX", "TY", "TZ"});
}

}  // namespace

void requireMembers(const std::string& path, const std::string& plain_path) {
  const cv::FileStorage document = documents::openForReading(plain_path);
  if (!document.isOpened()) return;
  const Member root{path + ": ", document.root()};
  const Member colour = root.at("RGB").isThere() ? root.at("RGB") : root.at("COLOR");
  const bool is_infrared = root.at("IR_L").isThere() && root.at("IR_R").isThere() && colour.isThere();
  const bool is_depth = root.at("DEPTH").isThere() && colour.isThere();
  if (!is_depth && !is_infrared) return;
  requireCamera(is_depth ? root.at("DEPTH") : root.at("IR_L"));
  requireCamera(is_depth ? colour : root.at("IR_R"));
  const bool has_depth_pose = root.at("Depth2RGB_Rotate").isThere() && root.at("Depth2RGB_Trans").isThere();
  if (has_depth_pose && is_infrared) {
    throw InputError(path,
                     "Depth2RGB_Rotate beside IR_R.Rotate was found; one pose was wanted, as two are read as none");
  }
  if (is_infrared) {
    requirePose(root.at("IR_R").at("Rotate"), root.at("IR_R").at("Translate"));
  } else {
    requirePose(root.at("Depth2RGB_Rotate"), root.at("Depth2RGB_Trans"));
  }
}

void requireGeometry(const std::string& path, const StereoCalibParams& calib) {
  for (const CameraCalib* camera : {&calib.left, &calib.right}) {
    const auto& n = camera->intrinsics;
    if (n[0] > 0.0 && n[1] > 0.0) continue;
    throw InputError(
        path, fmt::format("the {} camera has no focal length: Fx {}, Fy {} was found; numbers above 0 were wanted",
                          camera == &calib.left ? "left" : "right", n[0], n[1]));
  }
  const auto& e = calib.extrinsics;
  if (e[3] == 0.0 && e[4] == 0.0 && e[5] == 0.0)
    throw InputError(path, "TX, TY and TZ of 0 were found; cameras apart from each other were wanted");
}

}  // namespace polarline
