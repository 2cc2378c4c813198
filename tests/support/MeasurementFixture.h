#pragma once

#include <opencv2/core.hpp>

#include "support/RenderedPair.h"

/// Measurements of the small rendered pair, whose images a test may spoil.
struct MeasurementFixture {
  const RenderedPair& rendered = RenderedPair::small();
  ConsoleCapture console;
  PolarConfig config;
  MeasuredPair pair;  ///< What the measurement found.
  cv::Mat left = rendered.left();
  cv::Mat right = rendered.right();
  EvaluationCameras cameras = rendered.cameras();

  /// The images as they stand now, to be measured against this target.
  PairInput input(const std::string& target) const { return {0, target.c_str(), left, right, cameras}; }
  PairInput input() const { return input(rendered.target()); }
};
