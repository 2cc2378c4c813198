#include <algorithm>
#include <cmath>
#include <fstream>
#include <opencv2/imgproc.hpp>

#include "platform/Files.h"
#include "platform/OutputFile.h"
#include "polar/evaluate/ErrorArrow.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/evaluate/raw/CountedErrors.h"
#include "polar/results/ResultFiles.h"
#include "polar/results/TableWriter.h"

namespace {

/// With fewer points there is no statistic.
constexpr std::size_t kLeastPoints = 3;

/// What the residuals that count add up to.
struct Residuals {
  std::vector<double> kept;
  double sum = 0.0;
  double square_sum = 0.0;
  std::size_t within = 0;
};

double distanceOf(const cv::Point2f& measured, const cv::Point2f& predicted) {
  const float dx = measured.x - predicted.x;
  const float dy = measured.y - predicted.y;
  return std::sqrt(static_cast<double>(dx) * dx + static_cast<double>(dy) * dy);
}

/// Ascending, NaN last, so that any input has an order.
bool ascending(double a, double b) { return std::isnan(b) ? !std::isnan(a) : a < b; }

}  // namespace

bool PairEvaluator::CheckResidual(const cv::Mat& right_image, const std::vector<cv::Point2f>& measured_right,
                                  const std::vector<cv::Point2f>& predicted_right, std::vector<float>& errors) {
  const std::size_t count = measured_right.size();
  if (count < kLeastPoints || predicted_right.size() != count) return false;
  errors.assign(count, 0.0F);

  const bool saves_picture = config().tri_bias_savepng_swithch == 1;
  const bool saves_table = config().tir_bias_savecsv_swithch == 1;
  files::OutputFile table_file(saves_table ? pairFile(result_folder, image_id, "_right_tri.csv") : "");
  TableWriter table(table_file);
  cv::Mat picture;
  cv::cvtColor(right_image, picture, cv::COLOR_GRAY2BGR);

  Residuals residuals;
  for (std::size_t i = 0; i < count; ++i) {
    if (predicted_right[i] == cv::Point2f(0.0F, 0.0F)) continue;
    const double error = distanceOf(measured_right[i], predicted_right[i]);
    errors[i] = static_cast<float>(error);
    if (error > kLargestResidual) continue;
    // The marks are drawn only while the picture is not saved: a saved picture shows the clean image, as its readers
    // expect.
    if (config().tri_bias_savepng_swithch == 0 && std::isfinite(error)) drawResidual(picture, measured_right[i], error);
    if (error < config().tri_bias_divid) ++residuals.within;
    table.row(error);
    residuals.sum += error;
    residuals.square_sum += error * error;
    residuals.kept.push_back(error);
  }
  const std::string picture_path = saves_picture ? pairFile(result_folder, image_id, "_right_tri.png") : "";
  if (!picture_path.empty()) files::writeImage(picture_path, picture);

  if (residuals.kept.empty()) return false;
  std::sort(residuals.kept.begin(), residuals.kept.end(), ascending);
  if (residuals.kept.back() > kLargestResidual) return false;
  const auto kept = static_cast<double>(residuals.kept.size());
  figures.tri_mean = static_cast<float>(residuals.sum / kept);
  figures.tri_min = static_cast<float>(residuals.kept.front());
  figures.tri_max = static_cast<float>(residuals.kept.back());
  figures.tri_rms = static_cast<float>(std::sqrt(residuals.square_sum / kept));
  figures.tri_ratio = static_cast<float>(residuals.within) / static_cast<float>(residuals.kept.size());
  figures.setMeasured(FigureGroup::kResiduals);
  return true;
}
