#pragma once

#include <Eigen/Core>
#include <array>
#include <bitset>
#include <vector>

#include "diagnose/causes/RowDifferences.h"

/// Which causes a fit may use.
using CauseSet = std::bitset<kCauses>;
inline const CauseSet kAllCauses = CauseSet().set();

using CauseVector = Eigen::Matrix<double, static_cast<int>(kCauses), 1>;
using CauseMatrix = Eigen::Matrix<double, static_cast<int>(kCauses), static_cast<int>(kCauses)>;

/// How large each cause may well be: the standard deviation of what is thought of it before any picture. So wide that
/// it only bounds what the pictures say nothing about.
Misalignment expectedSizes(const StereoCalibParams& calib);

/// The misalignment that leaves the least row differences, in units of the expected sizes.
struct RowFit {
  CauseVector sizes;        ///< The misalignment; 0 for causes that it may not use.
  CauseMatrix information;  ///< Inverse covariance of all causes; that of the expected sizes is in it.
  Eigen::VectorXd rows;     ///< Left by it, pixels. Dots without one: 0, and weight 0.
  Eigen::MatrixXd slopes;   ///< Derivative of the rows, a column a cause.
  Eigen::VectorXd trust;    ///< 0 to 1: outliers none.
  double scale = 1.0;       ///< True standard deviation of a row difference by `RowDot::sd`.
  CauseVector pull;         ///< Half the slope of the sum of squares, the expected sizes' included.
};

class RowFitter {
 public:
  RowFitter(const RowDifferences& differences, const Misalignment& expected);

  /// All causes, by Gauss-Newton from no misalignment, so that the first step is the linear solution; first with
  /// Huber's weights (1964), then with Tukey's (Beaton and Tukey 1974).
  RowFit fit() const;
  /// Some of the causes, near a fit of all. `inflation` is the factor by which neighbours that err alike raise the
  /// variance of sums.
  RowFit refit(const RowFit& all, const CauseSet& causes, double inflation) const;
  /// What a fit of all causes comes to by the slopes where `named` lies. Where the pictures hardly tell causes apart, a
  /// true fit of all lies so far out that its slopes do not hold for few causes.
  RowFit allNear(const RowFit& named, double inflation) const;
  Misalignment misalignmentOf(const CauseVector& sizes) const;
  Eigen::VectorXd rowsAt(const CauseVector& sizes) const;

 private:
  Eigen::MatrixXd slopesAt(const CauseVector& sizes) const;
  void weigh(RowFit& fit, double (*trustOf)(double), double inflation) const;
  CauseVector stepOf(const RowFit& fit, const CauseSet& causes) const;

  const RowDifferences& differences_;
  Misalignment expected_;
  Eigen::VectorXd sd_;
};
