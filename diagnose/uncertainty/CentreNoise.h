#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <opencv2/core.hpp>
#include <string>

#include "diagnose/uncertainty/SeededRandom.h"
#include "polar/measure/DetectionMemory.h"

/// What the noise of a picture does to the centre of one dot.
struct NoisyCentre {
  cv::Vec2d centre;  ///< Pixels.
  cv::Vec2d shift;   ///< How far noise moved it, pixels.
};

/// By id.
using CentreNoise = std::map<std::int32_t, NoisyCentre>;

/// Takes a picture of a camera to the rectified one; empty: nothing is rectified.
using Warp = std::function<cv::Mat(const cv::Mat&)>;

/// Of one picture, and of what a warp makes of it.
struct SideNoise {
  CentreNoise raw, rectified;
};

/// Detects the board in the picture and in one that differs from it as another picture of the same scene would; the
/// shift is the difference of the two, divided by the root of two. What the detector does wrong in the same way each
/// time is in both and drops out, so this is what another picture would scatter by, whether a centre follows the noise
/// smoothly or the noise turns over single pixels of an outline: as many of them as between two pictures, which is why
/// the picture does not get its own noise once more but twice the variance. Both are warped and searched once more:
/// between pixels a warp blurs noise and dots as the place has it, so what a centre of the rectified picture follows
/// can't be told from the raw one. Empty when the board is not found. Any picture that the library measures; what
/// `known` holds is not searched again.
SideNoise centreNoise(const cv::Mat& picture, const Warp& warp, const std::string& target, const DetectionMemory& known,
                      SeededRandom& random);
