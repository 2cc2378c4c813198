#pragma once

#include <Eigen/Core>
#include <vector>

#include "diagnose/uncertainty/BoardGrid.h"

/// How much noise the dots at a place of the board have, by the mean of all: dots that a wide lens, a tilt or a warp
/// shows larger or smaller follow noise more or less. A parabola over the board, fitted to the squares of the shifts
/// by least squares. Of fewer than 120 dots the squares scatter too much for it: there it is 1 everywhere.
class NoiseLevels {
 public:
  /// `shifts`: of the dots of the grid, two components a column.
  NoiseLevels(const BoardGrid& grid, const Eigen::Matrix2Xd& shifts);

  /// Of the deviation, at one place at most four times that at another; the mean of the squares over the dots is 1.
  /// Beside the board: of the place next to it.
  double at(int row, int column) const;

 private:
  int rows_, columns_;
  std::vector<double> levels_;  ///< By place.
};
