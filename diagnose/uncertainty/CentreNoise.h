#pragma once

#include <cstdint>
#include <map>
#include <opencv2/core.hpp>
#include <string>

#include "diagnose/uncertainty/SeededRandom.h"

/// What the noise of a picture does to the centre of one dot.
struct NoisyCentre {
  cv::Vec2d centre;  ///< Pixels.
  cv::Vec2d shift;   ///< How far noise moved it, pixels.
};

/// By id.
using CentreNoise = std::map<std::int32_t, NoisyCentre>;

/// Detects the board twice in the picture with noise of its own kind added; the shift is the difference of the two,
/// divided by the root of two. What the detector does wrong in the same way each time is in both and drops out, so this
/// is what another picture of the same scene would differ by, whether a centre follows the noise smoothly or the noise
/// turns over single pixels of an outline. Empty when the board is not found. Any picture that the library measures.
CentreNoise centreNoise(const cv::Mat& picture, const std::string& target, SeededRandom& random);
