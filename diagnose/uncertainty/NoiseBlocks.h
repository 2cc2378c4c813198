#pragma once

#include <Eigen/Core>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "diagnose/uncertainty/BoardGrid.h"
#include "diagnose/uncertainty/CentreNoise.h"
#include "diagnose/uncertainty/SeededRandom.h"

/// The noise of one picture's dots, from which repetitions are drawn in blocks of neighbours (Kuensch 1989), so that
/// noise that neighbours share stays shared.
class NoiseBlocks {
 public:
  /// `noise` is not empty.
  NoiseBlocks(const CentreNoise& noise, int columns);

  /// Noise of one repetition for the dots of a grid: two components a column. Each block of 3 x 3 places gets that of a
  /// block somewhere in the picture, with either sign; where that has no dot, a single dot stands in.
  void draw(const BoardGrid& grid, SeededRandom& random, Eigen::Matrix2Xd& shifts) const;
  const Eigen::Matrix2d& covariance() const { return covariance_; }

 private:
  Eigen::Matrix2Xd shifts_;
  BoardGrid grid_;
  Eigen::Matrix2d covariance_;
};
