#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Chosen.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/formats/PoseNode.h"

namespace calibrations {
namespace {

SourceCamera eurocCamera(const Node& root) {
  const std::string model = root.at("camera_model").text();
  const std::string lens = root.at("distortion_model").text();
  if (model != "pinhole") refuseModel(root, model);
  const Node coefficients = root.at("distortion_coefficients");
  SourceCamera source;
  setPinhole(source.camera, root.at("intrinsics").numbers(4), root.at("intrinsics"));
  if (lens == "radial-tangential" || lens == "radtan") {
    setBrown(source, coefficients.numbers(4), coefficients);
  } else if (lens == "equidistant") {
    setFisheye(source, coefficients.numbers(4), coefficients);
  } else {
    refuseModel(root, model + "-" + lens);
  }
  source.camera.size = sizeOf(root.at("resolution"));
  return source;
}

}  // namespace

SourcePair readEuroc(const Documents& documents, const polarline::ImportOptions& options) {
  const auto [left, right] = cameraNodes(documents, options);
  SourcePair pair;
  pair.left = eurocCamera(left);
  pair.right = eurocCamera(right);
  // T_BS is the body from the sensor.
  const Pose body_from_left = poseOf(left.at("T_BS"), pair.deviation);
  const Pose body_from_right = poseOf(right.at("T_BS"), pair.deviation);
  pair.right_from_left = inverse(body_from_right) * body_from_left;
  return pair;
}

}  // namespace calibrations
