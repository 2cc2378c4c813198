#pragma once

#include <opencv2/core.hpp>

namespace refine {

/// A picture as single-precision greys, in the greys of the picture.
struct GreyPicture {
  cv::Mat grey;        ///< CV_32F, the mean of the colour channels.
  cv::Mat clipped;     ///< CV_8U, not 0 where a channel is at an end of its range.
  double step = 1.0;   ///< Distance of two neighbouring values of `grey` that the sensor can tell apart.
  double range = 0.0;  ///< The largest value that a channel can have.
};

/// Of 8 or 16 bits a channel; of four channels the last one, alpha, is left out. A 16-bit picture whose largest value
/// is 2^k - 1, k > 8, is taken to have k bits. Throws `std::invalid_argument` for any other depth or without pixels.
GreyPicture greyPictureOf(const cv::Mat& picture);

/// Grey between the pixels, bilinear. Precondition: 0 <= x < columns - 1, 0 <= y < rows - 1.
inline double greyAt(const cv::Mat& grey, double x, double y) {
  const int column = static_cast<int>(x), row = static_cast<int>(y);
  const double dx = x - column, dy = y - row;
  const auto* const upper = grey.ptr<float>(row) + column;
  const auto* const lower = grey.ptr<float>(row + 1) + column;
  const double above = upper[0] + dx * (static_cast<double>(upper[1]) - upper[0]);
  const double below = lower[0] + dx * (static_cast<double>(lower[1]) - lower[0]);
  return above + dy * (below - above);
}

}  // namespace refine
