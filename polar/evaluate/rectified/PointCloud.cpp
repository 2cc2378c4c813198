#include <array>
#include <fstream>
#include <functional>

#include "PolarLinePrecision/Status.h"
#include "platform/OutputFile.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/rectified/IdDistances.h"
#include "polar/geometry/FourPointMethod.h"
#include "polar/geometry/PointSpacing.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/TableWriter.h"

namespace {

/// The point of a pair of rectified pixels.
using Reprojection = std::function<cv::Point3f(const cv::Point2f& pixel_left, const cv::Point2f& pixel_right)>;

cv::Point3f reprojectByMatrix(const cv::Mat& Q, const cv::Point2f& pixel_left, const cv::Point2f& pixel_right) {
  const float disparity = pixel_left.x - pixel_right.x;
  const cv::Vec4d homogeneous = cv::Matx44d(Q) * cv::Vec4d(pixel_left.x, pixel_left.y, disparity, 1.0);
  const auto component = [&](int k) { return static_cast<float>(homogeneous[k] / homogeneous[3]); };
  return {component(0), component(1), component(2)};
}

/// In single precision throughout. The difference is right less left, the opposite of the reprojection by matrix: the
/// caller's baseline and offset carry the sign.
cv::Point3f reprojectByNumbers(const RectifiedFloats& rectified, const cv::Point2f& pixel_left,
                               const cv::Point2f& pixel_right) {
  const auto& [focal, baseline, cx, cy, disparity_offset] = rectified;
  const float z = (focal * baseline) / (pixel_right.x - pixel_left.x + disparity_offset);
  const float x = (pixel_left.x - cx) * z / focal;
  const float y = (pixel_left.y - cy) * z / focal;
  return {x, y, z};
}

/// Reprojects every shared point in ascending id and writes the table.
void reprojectShared(const PairEvaluator& evaluator, const MeasuredPair& pair, const Reprojection& reproject,
                     std::vector<CloudPoint>& cloud) {
  const bool saved = evaluator.config().allpointssavecsv_swithch == 1;
  files::OutputFile table_file(saved ? pairFile(evaluator.result_folder, evaluator.image_id, "_pointcloud.csv")
                                     : std::string());
  TableWriter table(table_file);
  for (const auto& [id, pixel_left] : pair.left_by_id) {
    const auto right = pair.right_by_id.find(id);
    if (right == pair.right_by_id.end()) continue;
    const cv::Point3f point = reproject(pixel_left, right->second);
    table.row(id, point.x, point.y, point.z);
    cloud.push_back({id, 0.0F, 0.0F, point.x, point.y, point.z});
  }
}

PairStatus compareFourPoints(PairEvaluator& evaluator, const std::vector<CloudPoint>& cloud) {
  const PolarConfig& config = evaluator.config();
  const four_points::Measured points = {
      cloudPosition(cloud, config.PolPoint1_ID), cloudPosition(cloud, config.PolPoint2_ID),
      cloudPosition(cloud, config.PolPoint3_ID), cloudPosition(cloud, config.PolPoint4_ID)};
  const int missing = four_points::firstMissing(points, 0);
  if (missing >= 0) {
    evaluator.errorText = four_points::missingText(missing);
    return polar_status::kPointMissing;
  }
  evaluator.figures.pol_dis = four_points::withExtremes(four_points::distanceErrors(
      points, {config.PolPoint1_GT, config.PolPoint2_GT, config.PolPoint3_GT, config.PolPoint4_GT}));
  evaluator.figures.setMeasured(FigureGroup::kPolDis);
  return polar_status::kSuccess;
}

/// What both forms do alike: measure, reproject, and compare the four points.
PairStatus makeCloud(PairEvaluator& evaluator, const PairInput& rectified_pair, const Reprojection& reproject,
                     std::vector<cv::Point2f>& left_points, std::vector<cv::Point2f>& right_points,
                     std::vector<CloudPoint>& cloud) {
  MeasuredPair pair;
  pair.left_points.swap(left_points);
  pair.right_points.swap(right_points);
  const PairStatus measured = evaluator.measure(rectified_pair, pair);
  const bool enough = measured == polar_status::kSuccess && evaluator.enoughShared(pair, kLeastSharedRectified);
  left_points.swap(pair.left_points);
  right_points.swap(pair.right_points);
  if (measured != polar_status::kSuccess) return kMeasurementFailed;
  if (!enough) return polar_status::kTooFewShared;

  evaluator.seen.rectified = sharedDots(pair);
  reprojectShared(evaluator, pair, reproject, cloud);
  if (evaluator.config().foursixmethod_swithch != 1) return polar_status::kSuccess;
  return compareFourPoints(evaluator, cloud);
}

}  // namespace

PairStatus PairEvaluator::CheckPointCloud(const PairInput& rectified_pair, const cv::Mat& Q,
                                          std::vector<cv::Point2f>& left_points, std::vector<cv::Point2f>& right_points,
                                          std::vector<CloudPoint>& cloud) {
  const auto reproject = [&Q](const cv::Point2f& left, const cv::Point2f& right) {
    return reprojectByMatrix(Q, left, right);
  };
  const PairStatus status = makeCloud(*this, rectified_pair, reproject, left_points, right_points, cloud);
  if (status == polar_status::kSuccess) seen.Q = Q;
  if (status != polar_status::kSuccess || config().allpoints_calc_switch != 1) return status;

  measureSpacing(cloud, config().pattern_cols);
  const SpacingFigures all = spacingFigures(cloud, config().pattern_step).all;
  figures.allpoints_means = all.mean_error;
  figures.allpoint_max = all.max;
  figures.allpoints_min = all.min;
  figures.setMeasured(FigureGroup::kSpacing);
  return polar_status::kSuccess;
}

PairStatus PairEvaluator::CheckPointCloudGroups(const PairInput& rectified_pair, std::vector<cv::Point2f>& left_points,
                                                std::vector<cv::Point2f>& right_points,
                                                std::vector<CloudPoint>& cloud) {
  const auto reproject = [this](const cv::Point2f& left, const cv::Point2f& right) {
    return reprojectByNumbers(rectified, left, right);
  };
  const PairStatus status = makeCloud(*this, rectified_pair, reproject, left_points, right_points, cloud);
  if (status != polar_status::kSuccess || config().oqc_switch != 1) return status;
  const PairStatus compared = evaluateIdDistances(config().Cal_ID_DIS, cloud, boardPoints, figures.id_dis);
  if (compared == polar_status::kSuccess) figures.setMeasured(FigureGroup::kIdDis);
  return compared;
}
