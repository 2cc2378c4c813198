#include "polar/evaluate/rectified/IdDistances.h"

#include <cmath>

#include "PolarLinePrecision/Status.h"
#include "platform/Console.h"
#include "polar/geometry/PointDistance.h"

namespace {

/// By the coordinates' sum, as with the four points: a real point whose sum truncates to 0 counts as missing, too.
bool isMissing(const cv::Point3f& point) { return std::trunc(point.x + point.y + point.z) == 0.0F; }

bool reportMissing(std::size_t group, std::int32_t id) {
  console::line(group, " group ", id, "_id not find ");
  return false;
}

bool evaluateGroup(std::size_t group, const std::vector<std::int32_t>& ids, const std::vector<CloudPoint>& cloud,
                   const std::vector<cv::Point3f>& board, double& error) {
  const std::int32_t first = ids.at(0);
  const std::int32_t second = ids.at(1);
  const cv::Point3f point_first = cloudPosition(cloud, first);
  const cv::Point3f point_second = cloudPosition(cloud, second);
  if (isMissing(point_first)) return reportMissing(group, first);
  if (isMissing(point_second)) return reportMissing(group, second);
  error = pointDistance(point_first, point_second) -
          pointDistance(board.at(static_cast<std::size_t>(first)), board.at(static_cast<std::size_t>(second)));
  return true;
}

}  // namespace

PairStatus evaluateIdDistances(const std::vector<std::vector<std::int32_t>>& groups,
                               const std::vector<CloudPoint>& cloud, const std::vector<cv::Point3f>& board,
                               std::vector<double>& id_dis) {
  id_dis.resize(groups.size());
  for (std::size_t group = 0; group < groups.size(); ++group) {
    if (!evaluateGroup(group, groups[group], cloud, board, id_dis[group])) return kGroupPointMissing;
  }
  return polar_status::kSuccess;
}
