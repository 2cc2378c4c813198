#include "diagnose/causes/RowPattern.h"

#include <limits>
#include <optional>

#include "diagnose/causes/CauseWords.h"
#include "diagnose/causes/RowSlope.h"

Misalignment misalignmentOf(const std::vector<polarline::Cause>& causes) {
  Misalignment misalignment{};
  for (const polarline::Cause& cause : causes) {
    for (std::size_t k = 0; k < kCauses; ++k) {
      const auto kind = static_cast<CauseKind>(k);
      if (cause.name == cause_words::nameOf(kind)) misalignment[k] = cause.value / cause_words::told(kind, 1.0);
    }
  }
  return misalignment;
}

RowPattern::Rows::Rows(const StereoCalibParams& calib, LensModel model)
    : cameras(calib, model), frames(rowFrames(cameras.R, cameras.T)) {}

double RowPattern::Rows::at(const cv::Point2d& left, const cv::Point2d& right) const {
  const std::optional<double> left_row = rowSlopeOf(cameras.left, frames.left, left);
  const std::optional<double> right_row = rowSlopeOf(cameras.right, frames.right, right);
  return left_row && right_row ? *left_row - *right_row : std::numeric_limits<double>::quiet_NaN();
}

RowPattern::RowPattern(const StereoCalibParams& calib, LensModel model, double f_scale,
                       const Misalignment& misalignment)
    : focal_(rowFocal(calib, model, f_scale)),
      believed_(calib, model),
      true_(misaligned(calib, model, misalignment), model) {}

double RowPattern::at(const cv::Point2d& left, const cv::Point2d& right) const {
  return focal_ * (believed_.at(left, right) - true_.at(left, right));
}
