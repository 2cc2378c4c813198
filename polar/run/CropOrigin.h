#pragma once

#include <opencv2/core.hpp>

/// The pixel of an image that becomes the top left one when the run cuts the middle out of it.
inline cv::Point cropOrigin(const cv::Size& image, const cv::Size& cropped) {
  return {(image.width - cropped.width) / 2, (image.height - cropped.height) / 2};
}
