#pragma once

#include <Eigen/Core>
#include <cstddef>
#include <vector>

#include "diagnose/uncertainty/BoardGrid.h"

/// What a smooth pattern over the board leaves of a dot's value: the value less that of the parabola that its
/// neighbours, two steps each way, and itself lie closest to (Savitzky and Golay 1964, in two dimensions).
class LocalTrend {
 public:
  explicit LocalTrend(const BoardGrid& grid);

  /// `field` has a column a dot. 0 for dots without enough neighbours.
  Eigen::MatrixXd scatter(const Eigen::MatrixXd& field) const;
  /// Mean square of the columns of a scatter, made whole for what the parabola took along; 0 without any.
  double variance(const Eigen::MatrixXd& scatter) const;

 private:
  struct Weight {
    std::size_t dot = 0;
    double weight = 0.0;
  };
  std::vector<std::vector<Weight>> weights_;  ///< Of the trend; empty: not enough neighbours.
  double left_over_ = 0.0;  ///< Part of the variance of independent values that a scatter keeps, in dots.
};

/// The field as it would be without noise: its scatter about the local trend cut down by as much as noise of that
/// variance (summed over the components) adds to it.
Eigen::MatrixXd withoutNoise(const Eigen::MatrixXd& field, const LocalTrend& trend, double noise_variance);
