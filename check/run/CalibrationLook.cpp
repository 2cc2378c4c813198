#include "check/run/CalibrationLook.h"

#include <fmt/format.h>

#include <algorithm>
#include <initializer_list>
#include <opencv2/core/persistence.hpp>

#include "check/explain/WarningOf.h"
#include "check/run/InputText.h"
#include "platform/Document.h"
#include "polarline/errors.h"

namespace polarline {
namespace {

/// An object of the document, with the place where it stands.
struct Member {
  std::string path;
  std::string name;  ///< "IR_R.Rotate"; empty: the whole document.
  cv::FileNode node;

  Member at(const char* member) const {
    return {path, name.empty() ? member : name + "." + member, node.isMap() ? node[member] : cv::FileNode()};
  }
  bool isThere() const { return !node.empty(); }
  [[noreturn]] void refuse(const std::string& found) const {
    throw InputError(path + ": " + name, found + "; a number was wanted");
  }
};

std::string valueIn(const cv::FileNode& node) {
  if (node.isString()) return shownOf(static_cast<std::string>(node));
  return node.isMap() ? "an object" : "a list";
}

/// What the loader takes for a number although it is none, or is not there.
class Look {
 public:
  explicit Look(std::vector<Warning>& warnings) : warnings_(warnings) {}

  void at(const Member& object, std::initializer_list<const char*> names) {
    for (const char* name : names) {
      const Member member = object.at(name);
      if (!member.isThere())
        absent_ += (absent_.empty() ? "" : ", ") + member.name;
      else if (!member.node.isInt() && !member.node.isReal())
        member.refuse(valueIn(member.node) + " was found");
    }
  }
  void atCamera(const Member& camera) {
    for (const char* name : {"Fx", "Fy"}) {
      const Member focal = camera.at(name);
      if (!focal.isThere()) focal.refuse("is not there");
    }
    at(camera, {"Fx", "Fy", "Cx", "Cy", "K1", "K2", "K3", "K4", "K5", "K6", "P1", "P2"});
  }
  void atPose(const Member& rotation, const Member& translation) {
    at(rotation, {"RX", "RY", "RZ"});
    at(translation, {"TX", "TY", "TZ"});
  }
  void tell(const std::string& path) {
    if (!absent_.empty())
      warnings_.push_back(warningOf("calibration_member", path + ": 0 stands for what is not there: " + absent_));
  }

 private:
  std::vector<Warning>& warnings_;
  std::string absent_;  ///< Names, by commas.
};

}  // namespace

void lookAtMembers(const std::string& path, const std::string& plain_path, std::vector<Warning>& warnings) {
  const cv::FileStorage document = documents::openForReading(plain_path);
  if (!document.isOpened()) return;
  const Member root{path, "", document.root()};
  const Member colour = root.at("RGB").isThere() ? root.at("RGB") : root.at("COLOR");
  const bool is_infrared = root.at("IR_L").isThere() && root.at("IR_R").isThere() && colour.isThere();
  const bool is_depth = root.at("DEPTH").isThere() && colour.isThere();
  if (!is_depth && !is_infrared) return;
  Look look(warnings);
  look.atCamera(is_depth ? root.at("DEPTH") : root.at("IR_L"));
  look.atCamera(is_depth ? colour : root.at("IR_R"));
  const bool has_depth_pose = root.at("Depth2RGB_Rotate").isThere() && root.at("Depth2RGB_Trans").isThere();
  if (has_depth_pose && is_infrared) {
    warnings.push_back(warningOf("two_poses", path + ": Depth2RGB_Rotate stands beside IR_R.Rotate"));
  } else if (is_infrared) {
    look.atPose(root.at("IR_R").at("Rotate"), root.at("IR_R").at("Translate"));
  } else {
    look.atPose(root.at("Depth2RGB_Rotate"), root.at("Depth2RGB_Trans"));
  }
  look.tell(path);
}

void lookAtGeometry(const std::string& path, const StereoCalibParams& calib, std::vector<Warning>& warnings) {
  for (const CameraCalib* camera : {&calib.left, &calib.right}) {
    const auto& n = camera->intrinsics;
    if (n[0] > 0.0 && n[1] > 0.0) continue;
    throw InputError(
        path, fmt::format("the {} camera has no focal length: Fx {}, Fy {} was found; numbers above 0 were wanted",
                          camera == &calib.left ? "left" : "right", n[0], n[1]));
  }
  const auto& e = calib.extrinsics;
  const bool is_told = std::ranges::count(warnings, "two_poses", &Warning::code) != 0;
  if (!is_told && e[3] == 0.0 && e[4] == 0.0 && e[5] == 0.0)
    warnings.push_back(warningOf("no_baseline", path + ": TX, TY and TZ are 0"));
}

}  // namespace polarline
