#include <algorithm>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Chosen.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/formats/KalibrCameras.h"
#include "calibrations/formats/PoseNode.h"

namespace calibrations {

namespace {

SourceCamera kalibrCamera(const Node& node) {
  const std::string model = node.at("camera_model").text();
  const std::string lens = node.at("distortion_model").text();
  if (model != "pinhole") refuseModel(node, model);
  const Node coefficients = node.at("distortion_coeffs");
  SourceCamera source;
  setPinhole(source.camera, node.at("intrinsics").numbers(4), node.at("intrinsics"));
  if (lens == "radtan" || lens == "radial-tangential") {
    setBrown(source, coefficients.numbers(4), coefficients);
  } else if (lens == "equidistant" || lens == "equi") {
    setFisheye(source, coefficients.numbers(4), coefficients);
  } else if (lens == "none") {
    setBrown(source, coefficients.numbers(0), coefficients);
  } else {
    refuseModel(node, model + "-" + lens);
  }
  source.camera.size = sizeOf(node.at("resolution"));
  return source;
}

/// Camera from the body that all cameras share.
Pose fromBody(const Node& camera, double& deviation) {
  if (const auto cam_imu = camera.find("T_cam_imu")) return poseOf(*cam_imu, deviation);
  if (const auto imu_cam = camera.find("T_imu_cam")) return inverse(poseOf(*imu_cam, deviation));
  camera.refuse("has neither T_cn_cnm1 nor T_cam_imu; the pose of the camera was wanted");
}

/// The later camera from the earlier one: along the chain where it is whole, else by the body.
Pose laterFromEarlier(const std::vector<Node>& cameras, std::size_t earlier, std::size_t later, double& deviation) {
  Pose pose;
  for (std::size_t k = earlier + 1; k <= later; ++k) {
    const auto link = cameras[k].find("T_cn_cnm1");
    if (!link) {
      const Pose later_from_body = fromBody(cameras[later], deviation);
      return later_from_body * inverse(fromBody(cameras[earlier], deviation));
    }
    pose = poseOf(*link, deviation) * pose;
  }
  return pose;
}

}  // namespace

SourcePair readKalibr(const Documents& documents, const polarline::ImportOptions& options) {
  const Node root(documents.front());
  if (documents.size() != 1) Node(documents[1]).refuse("is one file too many; one camchain was wanted");
  const std::vector<Node> cameras = kalibrCameras(root);
  const auto [left, right] = chosen(options);
  const std::size_t later = std::max(left, right);
  if (later >= cameras.size()) {
    root.refuse("has no cam" + std::to_string(later) + ", but " + std::to_string(cameras.size()) +
                " camera(s); the two of a pair were wanted");
  }
  SourcePair pair;
  pair.left = kalibrCamera(cameras[left]);
  pair.right = kalibrCamera(cameras[right]);
  const Pose pose = laterFromEarlier(cameras, std::min(left, right), later, pair.deviation);
  pair.right_from_left = left < right ? pose : inverse(pose);
  return pair;
}

}  // namespace calibrations
