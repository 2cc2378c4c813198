#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

#include "camera/RectifyPair.h"

/// Two float maps for `cv::remap`: columns and rows of the raw image.
struct WarpMaps {
  cv::Mat columns, rows;
};

/// What warps a pair, and the 4x4 matrix from warped pixels and disparity to points.
struct RectificationMaps {
  WarpMaps left, right;
  cv::Mat Q;
};

/// Whether a distortion model `type` has a rectification.
bool hasRectification(std::int32_t type);

/// The maps of a pair of images of one size. Precondition: the `type` has a rectification.
RectificationMaps rectificationMaps(const RectificationSettings& settings, const StereoMatrices& cameras,
                                    const cv::Size& size, std::int32_t type);
