#pragma once

#include <cstdint>
#include <vector>

#include "diagnose/uncertainty/BoardGrid.h"
#include "diagnose/uncertainty/LocalTrend.h"
#include "diagnose/uncertainty/NoiseBlocks.h"
#include "diagnose/uncertainty/Repetition.h"
#include "diagnose/uncertainty/SeededRandom.h"
#include "diagnose/uncertainty/TriangulationSlope.h"

/// The dots of a raw or of a rectified pair, with their noise.
struct DotScene {
  DotScene(const std::vector<std::int32_t>& ids, int columns, const CentreNoise& noise_left,
           const CentreNoise& noise_right);

  /// The next one in the place of the last, whose memory it takes over.
  void repeat(SeededRandom& random, Repetition& repetition) const;
  /// Of the pixels of a dot, mean of all.
  Eigen::Matrix4d covariance() const;
  /// Mean variance that noise gives to the positions, summed over the axes.
  double positionVariance() const;

  BoardGrid grid;
  BlockLayout layout;
  LocalTrend trend;
  NoiseBlocks left, right;
  std::vector<TriangulationSlope> slopes;  ///< Of each dot; empty: positions do not matter.
};
