#pragma once

#include <array>
#include <cstddef>

#include "tools/scene/Truth.h"

namespace scene {

/// What a library without any error would measure of a pair, by the calibration given: what is left is the fault of the
/// calibration. Over the dots that are drawn and wholly in both pictures.
struct TrueFigures {
  std::size_t points = 0;
  double dy_means = 0.0;  ///< Of the absolute row differences, pixels.
  double dy_min = 0.0;
  double dy_max = 0.0;
  double zero_dis = 0.0;            ///< Mean distance of the triangulated dots from the left camera, board unit.
  std::array<double, 6> pol_dis{};  ///< Triangulated less true length of the lines between the four points of the
                                    ///< polar configuration: 1-2, 1-3, 2-4, 3-4, 1-4, 2-3; board unit.
};

/// `truth` is that of a pair of the scene. Without any dot in view all is 0.
TrueFigures trueFigures(const Scene& scene, const PairTruth& truth);

}  // namespace scene
