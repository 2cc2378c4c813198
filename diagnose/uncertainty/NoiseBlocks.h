#pragma once

#include <Eigen/Core>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "diagnose/uncertainty/BoardGrid.h"
#include "diagnose/uncertainty/CentreNoise.h"
#include "diagnose/uncertainty/NoiseLevels.h"
#include "diagnose/uncertainty/SeededRandom.h"

/// Which blocks of 3 x 3 places the dots of a grid stand in, and where on the board.
struct BlockLayout {
  BlockLayout(const BoardGrid& grid);  // NOLINT(google-explicit-constructor): a grid says all of it.

  struct Place {
    std::uint32_t block = 0;
    std::int32_t row = 0, column = 0;  ///< On the board.
  };
  std::vector<Place> dots;
  std::size_t blocks = 0;
};

/// The noise of one picture's dots, from which repetitions are drawn in blocks of neighbours (Kuensch 1989), so that
/// noise that neighbours share stays shared. Where there is more of it than elsewhere, more is drawn.
class NoiseBlocks {
 public:
  /// `noise` is not empty.
  NoiseBlocks(const CentreNoise& noise, int columns);

  /// Noise of one repetition for the dots of a grid: two components a column. Each block of 3 x 3 places gets that of a
  /// block somewhere in the picture, with either sign; where that has no dot, a single dot stands in. What is taken
  /// from one place to another is first made as large as noise is there.
  void draw(const BlockLayout& layout, SeededRandom& random, Eigen::Matrix2Xd& shifts) const;
  /// Mean of all dots.
  const Eigen::Matrix2d& covariance() const { return covariance_; }
  const NoiseLevels& levels() const { return levels_; }

 private:
  Eigen::Matrix2Xd shifts_;  ///< As large as the mean everywhere, once the constructor is through.
  BoardGrid grid_;
  Eigen::Matrix2d covariance_;
  NoiseLevels levels_;
};
