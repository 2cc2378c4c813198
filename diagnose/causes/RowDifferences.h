#pragma once

#include <cstddef>
#include <vector>

#include "diagnose/SeenSet.h"
#include "diagnose/causes/Misalignment.h"

/// A dot as the row fit takes it.
struct RowDot {
  std::size_t pair = 0;     ///< Place among the set's pairs.
  cv::Point2d left, right;  ///< Pixels.
  cv::Vec2d left_ideal;     ///< Normalised, the left lens taken out.
  double sd = 1.0;          ///< Expected standard deviation of the row difference, pixels; up to a common factor.
};

/// The row differences of a set's dots by any misaligned form of its calibration. Dots that the calibration's lenses do
/// not see or whose numbers are not finite are left out, and of very many an even choice stands for all.
class RowDifferences {
 public:
  explicit RowDifferences(const SeenSet& set);

  const std::vector<RowDot>& dots() const { return dots_; }
  /// Left row less right row of each dot in the pictures rectified by the misaligned calibration, pixels of the
  /// rectified pictures; not a number where the misaligned lens does not see the dot.
  std::vector<double> rows(const Misalignment& misalignment) const;

 private:
  void addPair(const SeenSet& set, std::size_t index, std::size_t every);

  StereoCalibParams calib_;
  LensModel model_;
  double focal_;
  std::vector<RowDot> dots_;
};
