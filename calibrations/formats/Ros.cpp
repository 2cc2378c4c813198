#include <fmt/format.h>

#include <array>
#include <cmath>

#include "calibrations/formats/CameraNode.h"
#include "calibrations/formats/Chosen.h"
#include "calibrations/formats/Formats.h"
#include "calibrations/formats/PoseNode.h"

namespace calibrations {
namespace {

/// Pictures that the camera binned or cut are not those of the camera matrix.
void requireWholePictures(const Node& root) {
  for (const char* name : {"binning_x", "binning_y"}) {
    const auto binning = root.find(name);
    if (binning && binning->number() != 0.0 && binning->number() != 1.0) {
      binning->refuse(fmt::format("found a binning of {}; 1 was wanted", binning->number()));
    }
  }
  const auto region = root.find("roi");
  if (!region || !region->isMap()) return;
  for (const char* name : {"x_offset", "y_offset"}) {
    const auto offset = region->find(name);
    if (offset && offset->number() != 0.0) offset->refuse("is a part of the picture; the whole one was wanted");
  }
}

SourceCamera rosCamera(const Node& root) {
  requireWholePictures(root);
  const auto model = root.find("distortion_model");
  const std::string lens = model ? model->text() : "plumb_bob";
  const Node coefficients = root.at("distortion_coefficients");
  SourceCamera source;
  setMatrix(source.camera, root.at("camera_matrix"));
  if (lens == "plumb_bob" || lens == "rational_polynomial") {
    setBrown(source, coefficients.numbers(), coefficients);
  } else if (lens == "equidistant" || lens == "fisheye") {
    setFisheye(source, coefficients.numbers(), coefficients);
  } else {
    refuseModel(*model, lens);
  }
  const auto width = root.find("image_width");
  const auto height = root.find("image_height");
  if (width && height) source.camera.size = sizeOf(width->number(), height->number(), *width);
  return source;
}

/// The projection of a rectified camera, [K' t].
struct Projection {
  std::array<double, 12> p{};
  bool isSound = false;  ///< K' is [fx' 0 cx'; 0 fy' cy'; 0 0 1].

  cv::Vec3d last() const { return {p[3], p[7], p[11]}; }
  /// K'^-1 t.
  cv::Vec3d origin() const { return {(p[3] - p[2] * p[11]) / p[0], (p[7] - p[6] * p[11]) / p[5], p[11]}; }
};

Projection projectionOf(const Node& node) {
  Projection projection;
  const std::vector<double> p = node.matrix(3, 4);
  std::ranges::copy(p, projection.p.begin());
  projection.isSound =
      p[0] > 0.0 && p[5] > 0.0 && p[1] == 0.0 && p[4] == 0.0 && p[8] == 0.0 && p[9] == 0.0 && p[10] == 1.0;
  return projection;
}

bool hasSoundProjections(const Node& left, const Node& right) {
  return projectionOf(left.at("projection_matrix")).isSound && projectionOf(right.at("projection_matrix")).isSound;
}

/// Right origin from the left one in the frame of the rectified cameras. Of projections that lost their camera only the
/// direction is left, as long as it is along one axis.
cv::Vec3d rectifiedTranslation(const Node& left, const Node& right, bool lengthIsKnown) {
  const Projection p_left = projectionOf(left);
  const Projection p_right = projectionOf(right);
  if (p_left.isSound && p_right.isSound) return p_right.origin() - p_left.origin();
  if (!lengthIsKnown) {
    (p_left.isSound ? right : left)
        .refuse(
            "is no [fx' 0 cx' ..; 0 fy' cy' ..; 0 0 1 ..] but was overwritten, as by camera_matrix * "
            "rectification_matrix: the "
            "length of the baseline is lost; say it (--baseline)");
  }
  const cv::Vec3d difference = p_right.last() - p_left.last();
  if (cv::countNonZero(difference) > 1) right.refuse("was overwritten and does not tell the direction of the baseline");
  return difference;
}

}  // namespace

SourcePair readRos(const Documents& documents, const polarline::ImportOptions& options) {
  const auto [left, right] = cameraNodes(documents, options);
  SourcePair pair;
  pair.left = rosCamera(left);
  pair.right = rosCamera(right);
  const cv::Matx33d rectified_from_left = rotationOf(left.at("rectification_matrix"), pair.deviation);
  const cv::Matx33d rectified_from_right = rotationOf(right.at("rectification_matrix"), pair.deviation);
  const Node p_right = right.at("projection_matrix");
  const cv::Vec3d t = rectifiedTranslation(left.at("projection_matrix"), p_right, options.baseline.has_value());
  if (cv::norm(t) == 0.0)
    p_right.refuse("has no baseline, as of a camera that was calibrated alone; those of a pair were wanted");
  pair.is_length_lost = !hasSoundProjections(left, right);
  pair.right_from_left.R = rectified_from_right.t() * rectified_from_left;
  pair.right_from_left.T = rectified_from_right.t() * t;
  return pair;
}

}  // namespace calibrations
