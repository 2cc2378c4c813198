#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Chosen.h"
#include "calibrations/formats/Formats.h"

namespace calibrations {
namespace {

std::vector<double> numbersOf(const Node& node, std::initializer_list<const char*> names) {
  std::vector<double> numbers;
  for (const char* name : names) numbers.push_back(node.at(name).number());
  return numbers;
}

SourceCamera basaltCamera(const Node& node) {
  const std::string type = node.at("camera_type").text();
  if (type != "kb4" && type != "pinhole" && type != "pinhole-radtan8") refuseModel(node, type);
  const Node values = node.at("intrinsics");
  SourceCamera source;
  setPinhole(source.camera, numbersOf(values, {"fx", "fy", "cx", "cy"}), values);
  if (type == "kb4") setFisheye(source, numbersOf(values, {"k1", "k2", "k3", "k4"}), values);
  if (type == "pinhole-radtan8") {
    setBrown(source, numbersOf(values, {"k1", "k2", "p1", "p2", "k3", "k4", "k5", "k6"}), values);
  }
  return source;
}

/// The body from the camera: a position and a unit quaternion.
Pose basaltPose(const Node& node) {
  const std::vector<double> p = numbersOf(node, {"px", "py", "pz"});
  const std::vector<double> q = numbersOf(node, {"qx", "qy", "qz", "qw"});
  const double norm = std::hypot(std::hypot(q[0], q[1]), std::hypot(q[2], q[3]));
  if (std::abs(norm - 1.0) > 1e-3) node.refuse(fmt::format("found a quaternion of length {:.6g}; 1 was wanted", norm));
  const double x = q[0] / norm;
  const double y = q[1] / norm;
  const double z = q[2] / norm;
  const double w = q[3] / norm;
  const cv::Matx33d rotation(1 - 2 * (y * y + z * z), 2 * (x * y - w * z), 2 * (x * z + w * y),  //
                             2 * (x * y + w * z), 1 - 2 * (x * x + z * z), 2 * (y * z - w * x),  //
                             2 * (x * z - w * y), 2 * (y * z + w * x), 1 - 2 * (x * x + y * y));
  return {rotation, {p[0], p[1], p[2]}};
}

/// An entry of a list with one for each camera.
Node entry(const Node& root, const char* name, std::size_t camera) {
  const std::vector<Node> entries = root.at(name).items();
  if (camera < entries.size()) return entries[camera];
  root.at(name).refuse(
      fmt::format("has no camera {}, but {} camera(s); the two of a pair were wanted", camera, entries.size()));
}

}  // namespace

SourcePair readBasalt(const Documents& documents, const polarline::ImportOptions& options) {
  if (documents.size() != 1) Node(documents[1]).refuse("is one file too many; one calibration was wanted");
  const Node document(documents.front());
  const Node root = document.has("value0") ? document.at("value0") : document;
  const auto [left, right] = chosen(options);
  SourcePair pair;
  pair.left = basaltCamera(entry(root, "intrinsics", left));
  pair.right = basaltCamera(entry(root, "intrinsics", right));
  if (root.has("resolution")) {
    pair.left.camera.size = sizeOf(entry(root, "resolution", left));
    pair.right.camera.size = sizeOf(entry(root, "resolution", right));
  }
  const Pose body_from_left = basaltPose(entry(root, "T_imu_cam", left));
  pair.right_from_left = inverse(basaltPose(entry(root, "T_imu_cam", right))) * body_from_left;
  return pair;
}

}  // namespace calibrations
