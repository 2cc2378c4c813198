#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

#include "tools/scene/Optics.h"

namespace scene {

/// Gaussian blur of a one-channel float image, mirrored at the border so that the image's sum stays. Sigma 0 and below:
/// no change.
cv::Mat blurred(const cv::Mat& image, double sigma);

/// Vignetting and the light's gradient on a one-channel float image.
cv::Mat illuminated(const cv::Mat& image, const Optics& optics);

/// Noise and digitisation: a float image of greys becomes CV_8UC1, CV_16UC1, CV_8UC3 or CV_16UC3, as the optics tell.
/// The same seed gives the same image.
cv::Mat digitised(const cv::Mat& image, const Optics& optics, std::uint64_t seed);

}  // namespace scene
