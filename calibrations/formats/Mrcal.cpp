#include <algorithm>
#include <array>
#include <opencv2/calib3d.hpp>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Chosen.h"
#include "calibrations/formats/Formats.h"

namespace calibrations {
namespace {

struct Model {
  const char* name;
  std::size_t coefficients;
};
constexpr std::array<Model, 5> kModels = {
    {{"PINHOLE", 0}, {"OPENCV4", 4}, {"OPENCV5", 5}, {"OPENCV8", 8}, {"OPENCV12", 12}}};

/// The older name of the same models, DISTORTION_NONE for the pinhole.
std::string modelOf(const Node& node) {
  std::string text = node.text();
  if (text == "DISTORTION_NONE") return "PINHOLE";
  for (const char* prefix : {"LENSMODEL_", "DISTORTION_"}) {
    if (text.starts_with(prefix)) return text.substr(std::string(prefix).size());
  }
  return text;
}

SourceCamera mrcalCamera(const Node& root) {
  const Node lens = root.at({"lensmodel", "lens_model", "distortion_model"});
  const auto* const model =
      std::ranges::find_if(kModels, [name = modelOf(lens)](const Model& each) { return each.name == name; });
  if (model == kModels.end()) refuseModel(lens, lens.text());
  const Node intrinsics = root.at("intrinsics");
  const std::vector<double> values = intrinsics.numbers(4 + model->coefficients);
  SourceCamera source;
  setPinhole(source.camera, values, intrinsics);
  setBrown(source, {values.begin() + 4, values.end()}, intrinsics);
  source.camera.size = sizeOf(root.at("imagersize"));
  return source;
}

/// Camera from the reference: axis times angle, then the translation.
Pose mrcalPose(const Node& root) {
  const Node node = root.at({"rt_cam_ref", "extrinsics"});
  const std::vector<double> rt = node.numbers(6);
  if (root.has("rt_cam_ref") && root.has("extrinsics") && root.at("extrinsics").numbers(6) != rt) {
    root.at("extrinsics").refuse("differs from rt_cam_ref; the same pose was wanted");
  }
  Pose pose;
  cv::Rodrigues(cv::Vec3d(rt[0], rt[1], rt[2]), pose.R);
  pose.T = {rt[3], rt[4], rt[5]};
  return pose;
}

}  // namespace

SourcePair readMrcal(const Documents& documents, const polarline::ImportOptions& options) {
  const auto [left, right] = cameraNodes(documents, options);
  SourcePair pair;
  pair.left = mrcalCamera(left);
  pair.right = mrcalCamera(right);
  const Pose left_from_reference = mrcalPose(left);
  pair.right_from_left = mrcalPose(right) * inverse(left_from_reference);
  return pair;
}

}  // namespace calibrations
