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
};
