#include <cmath>
#include <fstream>
#include <limits>
#include <opencv2/imgproc.hpp>

#include "PolarLinePrecision/Status.h"
#include "platform/Files.h"
#include "platform/OutputFile.h"
#include "polar/evaluate/ErrorArrow.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/geometry/FloatStatistics.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/TableWriter.h"

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

void add(RowDifferences& differences, float abs_dx, float abs_dy, float limit) {
  if (abs_dy > limit) ++differences.over_limit;
  differences.abs_dx.push_back(abs_dx);
  differences.abs_dy.push_back(abs_dy);
  if (abs_dy < differences.smallest) differences.smallest = abs_dy;
  if (abs_dy > differences.largest) differences.largest = abs_dy;
}

/// `picture` is drawn on unless it is empty.
RowDifferences compareRows(const MeasuredPair& pair, float limit, cv::Mat& picture, TableWriter& table) {
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
    if (!picture.empty()) drawRowDifference(picture, pixel_left, dy, limit > abs_dy);
    if (numbered != pair.left_by_id.end()) table.row((numbered++)->first, abs_dy);
    add(differences, std::abs(pixel_left.x - pixel_right.x), abs_dy, limit);
  }
  return differences;
}

}  // namespace

PairStatus PairEvaluator::CheckRowDisparity(const PairInput& rectified_pair, float& variance_x, float& variance_y) {
  MeasuredPair pair;
  if (measure(rectified_pair, pair) != polar_status::kSuccess) return kMeasurementFailed;
  if (!enoughShared(pair, kLeastSharedRectified)) return polar_status::kTooFewShared;
  seen.rectified = sharedDots(pair);

  const auto outputPath = [this](std::int32_t saved, const char* suffix) {
    return saved == 1 ? pairFile(result_folder, image_id, suffix) : std::string();
  };
  const std::string picture_path = outputPath(config().dy_bias_savepng_swithch, "_left_dy.png");
  files::OutputFile table_file(outputPath(config().dy_bias_savecsv_swithch, "_left_dy.csv"));
  TableWriter table(table_file);
  cv::Mat picture = picture_path.empty() ? cv::Mat() : rectified_pair.left_image.clone();
  const RowDifferences differences = compareRows(pair, config().dy_bias_divid, picture, table);
  if (!picture.empty()) files::writeImage(picture_path, picture);

  const FloatStatistics statistics_y = floatStatistics(differences.abs_dy);
  variance_x = floatStatistics(differences.abs_dx).variance;
  variance_y = statistics_y.variance;
  figures.dy_means = statistics_y.mean;
  figures.dy_variance = statistics_y.variance;
  figures.dy_min = differences.smallest;
  figures.dy_max = differences.largest;
  figures.dy_ratio = static_cast<float>(differences.over_limit) / static_cast<float>(differences.abs_dy.size());
  figures.setMeasured(FigureGroup::kRows);
  return polar_status::kSuccess;
}
