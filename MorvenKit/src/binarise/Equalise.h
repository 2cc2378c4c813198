#pragma once

#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

/// Evens out the contrast of an 8-bit picture in place: adaptive histogram equalisation in `grid` tiles, bilinear in
/// between (Zuiderveld 1994), at the lowest limit of contrast there is. To the bit what `cv::createCLAHE(1.0, grid)`
/// gives, whose interpolation alone takes as long as all that is done with the dots. Each side has a tile at least and
/// no more tiles than half its pixels.
void equalise(cv::Mat& image, const cv::Size& grid);

}  // namespace kestrune::morvenkit
