#include <cmath>
#include <limits>
#include <opencv2/imgproc.hpp>

#include "PolarLinePrecision/Status.h"
#include "platform/Files.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/geometry/FloatStatistics.h"
#include "polar/results/PairFiles.h"
#include "polar/results/RowWriter.h"

namespace {

/// Differences of all shared points and what they come to.
struct RowDifferences {
  std::vector<float> abs_dx;
  std::vector<float> abs_dy;
  float smallest = std::numeric_limits<float>::max();
  /// The smallest normal number, not 0: a pair without any difference reports it as its largest.
  float largest = std::numeric_limits<float>::min();
  std::size_t over_limit = 0;
};

/// Circle and arrow on the left image as it stands; the arrow has the sign of the difference, 300 times as long.
void drawDifference(cv::Mat& picture, const cv::Point2f& pixel_left, float dy, bool within) {
  const cv::Scalar red(0, 0, 255);
  const cv::Scalar green(0, 255, 0);
  const cv::Point start(pixel_left);
  const cv::Point end(cv::Point2f(pixel_left.x, pixel_left.y + 300.0F * dy));
  cv::circle(picture, start, 2, red, 1, 8);
  cv::arrowedLine(picture, start, end, within ? green : red, 3, 8, 0, 0.3);
}

void add(RowDifferences& differences, float abs_dx, float abs_dy, float limit) {
  if (abs_dy > limit) ++differences.over_limit;
  differences.abs_dx.push_back(abs_dx);
  differences.abs_dy.push_back(abs_dy);
  if (abs_dy < differences.smallest) differences.smallest = abs_dy;
  if (abs_dy > differences.largest) differences.largest = abs_dy;
}

/// `picture` is drawn on unless it is empty.
RowDifferences compareRows(const MeasuredPair& pair, float limit, cv::Mat& picture, RowWriter& table) {
  RowDifferences differences;
  differences.abs_dx.reserve(pair.left_points.size());
  differences.abs_dy.reserve(pair.left_points.size());
  // One id a row, also where the left map keeps ids without a partner: the ids then run ahead of the points, which is
  // meant.
  auto numbered = pair.left_by_id.begin();
  for (std::size_t i = 0; i < pair.left_points.size(); ++i) {
    const cv::Point2f& pixel_left = pair.left_points[i];
    const cv::Point2f& pixel_right = pair.right_points.at(i);
    const float dy = pixel_left.y - pixel_right.y;
    const float abs_dy = std::abs(dy);
    if (!picture.empty()) drawDifference(picture, pixel_left, dy, limit > abs_dy);
    if (numbered != pair.left_by_id.end()) table.row((numbered++)->first, abs_dy);
    add(differences, std::abs(pixel_left.x - pixel_right.x), abs_dy, limit);
  }
  return differences;
}

}  // namespace

PairStatus PairEvaluator::CheckRowDisparity(const std::int32_t& evalu_model, const char* targetConfigPath,
                                            const cv::Mat& left_rectified, const cv::Mat& right_rectified,
                                            float& variance_x, float& variance_y) {
  MeasuredPair pair;
  if (measure(evalu_model, targetConfigPath, left_rectified, right_rectified, pair) != polar_status::kSuccess) {
    return kMeasurementFailed;
  }
  if (!enoughShared(pair, kLeastSharedRectified)) return polar_status::kTooFewShared;

  const auto outputPath = [this](std::int32_t saved, const char* suffix) {
    return saved == 1 ? pairFile(result_folder, image_id, suffix) : std::string();
  };
  const std::string picture_path = outputPath(config().dy_bias_savepng_swithch, "_left_dy.png");
  std::ofstream table_file = files::openOutput(outputPath(config().dy_bias_savecsv_swithch, "_left_dy.csv"));
  RowWriter table(table_file);
  cv::Mat picture = picture_path.empty() ? cv::Mat() : left_rectified.clone();
  const RowDifferences differences = compareRows(pair, config().dy_bias_divid, picture, table);
  if (!picture.empty()) files::writeImage(picture_path, picture);

  const FloatStatistics statistics_y = floatStatistics(differences.abs_dy);
  variance_x = floatStatistics(differences.abs_dx).variance;
  variance_y = statistics_y.variance;
  dy_means = statistics_y.mean;
  dy_variance = statistics_y.variance;
  dy_min = differences.smallest;
  dy_max = differences.largest;
  dy_ratio = static_cast<float>(differences.over_limit) / static_cast<float>(differences.abs_dy.size());
  return polar_status::kSuccess;
}
