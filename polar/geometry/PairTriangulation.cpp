#include "polar/geometry/PairTriangulation.h"

#include "polar/geometry/Triangulation.h"

namespace {

PairPointRecord recordOf(std::int32_t id, const cv::Point2f& pixel_left, const cv::Point2f& pixel_right,
                         const cv::Point3f& point_left) {
  PairPointRecord record;
  record.id = id;
  record.left_x = pixel_left.x;
  record.left_y = pixel_left.y;
  record.right_x = pixel_right.x;
  record.right_y = pixel_right.y;
  record.x = point_left.x;
  record.y = point_left.y;
  record.z = point_left.z;
  return record;
}

}  // namespace

TriangulatedPair triangulateShared(const MeasuredPair& pair, const EvaluationCameras& cameras,
                                   const CameraPairModel& model) {
  TriangulatedPair result;
  auto numbered = pair.left_by_id.begin();
  for (std::size_t i = 0; i < pair.left_points.size() && numbered != pair.left_by_id.end(); ++i, ++numbered) {
    const cv::Point2f& pixel_left = pair.left_points[i];
    const cv::Point2f& pixel_right = pair.right_points.at(i);
    const std::vector<cv::Point3f> points = TriangulatePair(pixel_left, pixel_right, cameras, model);
    result.records.push_back(recordOf(numbered->first, pixel_left, pixel_right, points[0]));
    result.points_left.push_back(points[0]);
    result.predicted_right.push_back(predictRightPixel(points[1], cameras.right_K, model));
  }
  return result;
}

SeenCameras seenCameras(const EvaluationCameras& cameras) {
  return {cv::Matx33d(cameras.left_K), cv::Matx33d(cameras.right_K), cv::Matx33d(cameras.R), cv::Vec3d(cameras.T)};
}
