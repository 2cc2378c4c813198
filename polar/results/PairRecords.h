#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/board/RingTargetConfig.h"
#include "Tallowfen/src/trace/DetectionTrace.h"

/// Board points of one image by id, in ascending id; the first point of an id wins.
using PointsById = std::map<std::int32_t, cv::Point2f>;

/// A detection that numbered too few dots, for observers.
struct FailedDetection {
  kestrune::RingTargetConfig config;
  kestrune::DetectionTrace trace;
  cv::Size size;  ///< Of the image.
  int type = 0;   ///< Of its pixels, as they came.
};

/// The measured points of a pair. Entries of equal index in the two lists belong to the same board point.
struct MeasuredPair {
  std::vector<cv::Point2f> left_points;
  std::vector<cv::Point2f> right_points;
  PointsById left_by_id;
  PointsById right_by_id;

  // For observers, of the left and the right image.
  std::array<std::size_t, 2> found{};                              ///< Numbered dots.
  std::array<std::shared_ptr<const FailedDetection>, 2> failed{};  ///< Null where enough were numbered.
};

/// One shared point as the evaluations keep it during a run.
struct PairPointRecord {
  std::int32_t id = 0;
  float left_x = 0.0F, left_y = 0.0F;    ///< Measured pixel, left.
  float right_x = 0.0F, right_y = 0.0F;  ///< Measured pixel, right.
  float x = 0.0F, y = 0.0F, z = 0.0F;    ///< Triangulated point, left camera frame, board unit.
  float right_err = 0.0F;                ///< Residual in the right image, pixels. Reaches no output.
  float dis_rms = 0.0F;                  ///< Of the distance errors to the other points.
  float nor_rms = 0.0F;                  ///< The same of those divided by the true distances. Reaches no output.
};

/// One point of the rectified pair's cloud.
struct CloudPoint {
  std::int32_t id = 0;
  float row_dist = 0.0F;  ///< Distance to the point with id + 1; 0 when there is none.
  float col_dist = 0.0F;  ///< Distance to the point with id + `pattern_cols`; 0 when there is none.
  float x = 0.0F, y = 0.0F, z = 0.0F;
};

/// Position of the cloud's point of that id, the first one if there are several; the origin without one.
inline cv::Point3f cloudPosition(const std::vector<CloudPoint>& cloud, std::int32_t id) {
  const auto found = std::find_if(cloud.begin(), cloud.end(), [id](const CloudPoint& point) { return point.id == id; });
  return found == cloud.end() ? cv::Point3f(0.0F, 0.0F, 0.0F) : cv::Point3f(found->x, found->y, found->z);
}
