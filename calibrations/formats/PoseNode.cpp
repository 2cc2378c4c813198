#include "calibrations/formats/PoseNode.h"

#include <fmt/format.h>

#include <algorithm>

#include "calibrations/geometry/NearestRotation.h"

namespace calibrations {
namespace {

cv::Matx33d nearestOf(const cv::Matx33d& printed, const Node& node, double& deviation) {
  const std::optional<cv::Matx33d> nearest = nearestRotation(printed);
  if (!nearest) {
    node.refuse(fmt::format(
        "is no rotation: |M'M - I| reaches {:.3g} and the determinant is {:.3g}; at most {} and 1 were wanted",
        deviationOf(printed), cv::determinant(printed), kMostDeviation));
  }
  deviation = std::max(deviation, deviationOf(printed));
  return *nearest;
}

}  // namespace

cv::Matx33d rotationOf(const Node& node, double& deviation) {
  return nearestOf(cv::Matx33d(node.matrix(3, 3).data()), node, deviation);
}

Pose poseOf(const Node& node, double& deviation) {
  const cv::Matx44d m(node.matrix(4, 4).data());
  if (m(3, 0) != 0.0 || m(3, 1) != 0.0 || m(3, 2) != 0.0 || m(3, 3) != 1.0) {
    node.refuse(fmt::format("ends with the row {} {} {} {}; 0 0 0 1 was wanted", m(3, 0), m(3, 1), m(3, 2), m(3, 3)));
  }
  return {nearestOf(m.get_minor<3, 3>(0, 0), node, deviation), {m(0, 3), m(1, 3), m(2, 3)}};
}

}  // namespace calibrations
