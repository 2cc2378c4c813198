#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Thresholds an 8-bit image by a map of tile thresholds (Otsu 1979): white where the pixel is above the map. The width
/// over `block` is the number of tiles along both axes. Columns and rows beyond the last whole tile belong to none, but
/// the map is stretched over the whole image by `interpolation` (a `cv::InterpolationFlags`). `dst` may be `src`.
/// Throws `cv::Exception` when `block` is not within 1 and the width, or when the image has fewer rows than tiles.
void LocalOtsuBinarize(const cv::Mat& src, cv::Mat& dst, int interpolation, int block);

}  // namespace kestrune::morvenkit
