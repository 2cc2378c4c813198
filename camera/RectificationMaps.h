#pragma once

#include <opencv2/core.hpp>

#include "camera/LensModel.h"
#include "camera/RectifyPair.h"
#include "camera/StereoRectifyScaled.h"

/// Two float maps for `cv::remap`: for each virtual pixel its column and its row in the raw image.
struct WarpMaps {
  cv::Mat columns, rows;
};

/// The maps of both images, and the 4x4 matrix from (column, row, disparity, 1) of the virtual pair to points.
struct RectificationMaps {
  WarpMaps left, right;
  cv::Mat Q;
};

/// The virtual pair that a pair of images of that size is warped into.
Rectification virtualPair(const RectificationSettings& settings, const StereoMatrices& cameras, const cv::Size& size,
                          LensModel model);

/// The maps of a pair of images of one size.
RectificationMaps rectificationMaps(const RectificationSettings& settings, const StereoMatrices& cameras,
                                    const cv::Size& size, LensModel model);
