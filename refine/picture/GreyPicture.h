#pragma once

#include <cstdint>
#include <opencv2/core.hpp>

namespace refine {

/// A picture's greys in single precision, in the greys of the picture. A picture of one channel is read where it lies:
/// to copy all of it would take longer than to look at the edges of its dots.
struct GreyPicture {
  cv::Mat grey;        ///< The picture itself (CV_8U, CV_16U), or the mean of its colour channels (CV_32F).
  cv::Mat clipped;     ///< Of colours only: CV_8U, not 0 where a channel is at an end of its range.
  double step = 1.0;   ///< Distance of two neighbouring values that the sensor can tell apart.
  double range = 0.0;  ///< The largest value that a channel can have.

  float at(int row, int column) const {
    if (grey.depth() == CV_8U) return static_cast<float>(grey.ptr<std::uint8_t>(row)[column]);
    if (grey.depth() == CV_16U) return static_cast<float>(grey.ptr<std::uint16_t>(row)[column]);
    return grey.ptr<float>(row)[column];
  }
  /// Whether a channel is at an end of its range.
  bool isClipped(int row, int column) const {
    if (clipped.data != nullptr) return clipped.ptr<std::uint8_t>(row)[column] != 0;
    const float value = at(row, column);
    return value <= 0.0F || value >= static_cast<float>(range);
  }
  /// Has a processor that can do so fetch the pixels of a box, cut to the picture, while it does something else: dots
  /// lie far apart in memory, and to wait for each of their rows takes longer than to fit them. `rows`: every so
  /// many-th row, counted from the picture's first.
  void fetch(const cv::Point2d& centre, const cv::Point2d& half, int rows = 1) const;
  /// Grey between the pixels, bilinear. Precondition: 0 <= x < columns - 1, 0 <= y < rows - 1.
  double between(double x, double y) const {
    const int column = static_cast<int>(x), row = static_cast<int>(y);
    const double dx = x - column, dy = y - row;
    const double upper = at(row, column), lower = at(row + 1, column);
    const double above = upper + dx * (static_cast<double>(at(row, column + 1)) - upper);
    const double below = lower + dx * (static_cast<double>(at(row + 1, column + 1)) - lower);
    return above + dy * (below - above);
  }
};

/// Of 8 or 16 bits a channel; of four channels the last one, alpha, is left out. A 16-bit picture whose largest value
/// is 2^k - 1, k > 8, is taken to have k bits. Throws `std::invalid_argument` for any other depth or without pixels.
GreyPicture greyPictureOf(const cv::Mat& picture);

}  // namespace refine
