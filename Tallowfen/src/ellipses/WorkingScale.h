#pragma once

#include <opencv2/core.hpp>
#include <vector>

#include "Tallowfen/src/ellipses/Ellipses.h"

namespace kestrune {

/// The scale at which an image is searched for ellipses.
struct WorkingScale {
  cv::Size size;                   ///< Of the working image.
  double image_per_working = 1.0;  ///< Image pixels per working pixel.
  bool resized = false;            ///< False: the image is searched as it is.
};

/// Small images are enlarged, large ones halved; from 641 to 2047 columns the image stays.
WorkingScale workingScaleOf(cv::Size image_size);

/// The image at its working scale, bilinear; the image itself when it stays.
cv::Mat workingImage(const cv::Mat& image, const WorkingScale& scale);

/// Takes centres and semi-axes from working pixels to image pixels. Meant: the edge points stay in working pixels.
void mapToImage(const WorkingScale& scale, std::vector<Ellipse>& ellipses);

}  // namespace kestrune
