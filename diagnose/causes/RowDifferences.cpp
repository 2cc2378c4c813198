#include "diagnose/causes/RowDifferences.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "camera/CalibratedPair.h"
#include "diagnose/causes/RowFrames.h"
#include "diagnose/causes/RowSlope.h"

namespace {

/// A set with more tells no more: what is common to neighbouring dots limits the fit long before.
constexpr std::size_t kMostDots = 6000;
/// Stands for the error of a detected centre, of which nothing is known; pixels.
constexpr double kDetectedSd = 0.02;
/// Pixels; the lens is smooth over it.
constexpr double kPixelStep = 0.05;

/// Variance of a rectified slope, from that of the pixel through the lens.
std::optional<double> slopeVariance(const CalibratedCamera& camera, const cv::Matx33d& frame, const cv::Point2d& pixel,
                                    const cv::Matx22d& covariance) {
  cv::Vec2d gradient;
  for (int axis = 0; axis < 2; ++axis) {
    const cv::Point2d step(axis == 0 ? kPixelStep : 0.0, axis == 1 ? kPixelStep : 0.0);
    const std::optional<double> above = rowSlopeOf(camera, frame, pixel + step);
    const std::optional<double> below = rowSlopeOf(camera, frame, pixel - step);
    if (!above || !below) return std::nullopt;
    gradient[axis] = (*above - *below) / (2.0 * kPixelStep);
  }
  const bool is_known = covariance(0, 0) > 0.0 && covariance(1, 1) > 0.0;
  const cv::Matx22d used = is_known ? covariance : cv::Matx22d::eye() * (kDetectedSd * kDetectedSd);
  return gradient.dot(used * gradient);
}

bool isFinite(const SeenDot& dot) {
  return std::isfinite(dot.left.x) && std::isfinite(dot.left.y) && std::isfinite(dot.right.x) &&
         std::isfinite(dot.right.y);
}

std::size_t countOf(const SeenSet& set) {
  std::size_t count = 0;
  for (const SeenPair& pair : set.pairs) count += pair.dots.size();
  return count;
}

}  // namespace

RowDifferences::RowDifferences(const SeenSet& set)
    : calib_(set.calib), model_(set.model), focal_(rowFocal(set.calib, set.model, set.f_scale)) {
  const std::size_t every = std::max<std::size_t>(1, (countOf(set) + kMostDots - 1) / kMostDots);
  for (std::size_t index = 0; index < set.pairs.size(); ++index) addPair(set, index, every);
}

void RowDifferences::addPair(const SeenSet& set, std::size_t index, std::size_t every) {
  const CalibratedPair cameras(calib_, model_);
  const RowFrames frames = rowFrames(cameras.R, cameras.T);
  const std::vector<SeenDot>& seen = set.pairs[index].dots;
  for (std::size_t k = index % every; k < seen.size(); k += every) {
    const SeenDot& dot = seen[k];
    if (!isFinite(dot)) continue;
    const std::optional<cv::Point2d> left = cameras.left.idealOf(dot.left);
    const auto left_variance = slopeVariance(cameras.left, frames.left, dot.left, dot.left_covariance);
    const auto right_variance = slopeVariance(cameras.right, frames.right, dot.right, dot.right_covariance);
    if (!left || !left_variance || !right_variance) continue;
    const double sd = focal_ * std::sqrt(*left_variance + *right_variance);
    if (!std::isfinite(sd) || sd <= 0.0) continue;
    dots_.push_back({index, dot.left, dot.right, {left->x, left->y}, sd});
  }
}

std::vector<double> RowDifferences::rows(const Misalignment& misalignment) const {
  const CalibratedPair cameras(misaligned(calib_, model_, misalignment), model_);
  const RowFrames frames = rowFrames(cameras.R, cameras.T);
  std::vector<double> rows;
  rows.reserve(dots_.size());
  for (const RowDot& dot : dots_) {
    const std::optional<double> right = rowSlopeOf(cameras.right, frames.right, dot.right);
    const double none = std::numeric_limits<double>::quiet_NaN();
    rows.push_back(right ? focal_ * (rowSlopeOf(frames.left, dot.left_ideal) - *right) : none);
  }
  return rows;
}
