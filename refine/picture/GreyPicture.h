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

  /// Calls work with a value of the pixels' type.
  template <typename Work>
  auto withPixels(const Work& work) const {
    if (grey.depth() == CV_8U) return work(std::uint8_t{});
    if (grey.depth() == CV_16U) return work(std::uint16_t{});
    return work(float{});
  }
  float at(int row, int column) const {
    return withPixels([&](auto pixel) { return static_cast<float>(grey.ptr<decltype(pixel)>(row)[column]); });
  }
  /// Whether a channel is at an end of its range.
  bool isClipped(int row, int column) const {
    if (clipped.data != nullptr) return clipped.ptr<std::uint8_t>(row)[column] != 0;
    const float value = at(row, column);
    return value <= 0.0F || value >= static_cast<float>(range);
  }
  /// Touches the pixels of a box, cut to the picture, so that they come from memory while something else is done: dots
  /// lie far apart, and to wait for each of their rows takes longer than to fit them. `rows`: every so many-th row,
  /// counted from the picture's first.
  void fetch(const cv::Point2d& centre, const cv::Point2d& half, int rows = 1) const;
  /// Grey between the pixels, bilinear. Precondition: 0 <= x < columns - 1, 0 <= y < rows - 1.
  double between(double x, double y) const {
    return withPixels([&](auto pixel) {
      const int column = static_cast<int>(x), row = static_cast<int>(y);
      const double dx = x - column, dy = y - row;
      const auto* const upper = grey.ptr<decltype(pixel)>(row) + column;
      const auto* const lower = grey.ptr<decltype(pixel)>(row + 1) + column;
      const double above = upper[0] + dx * (static_cast<double>(upper[1]) - upper[0]);
      const double below = lower[0] + dx * (static_cast<double>(lower[1]) - lower[0]);
      return above + dy * (below - above);
    });
  }
};

/// Of 8 or 16 bits a channel; of four channels the last one, alpha, is left out. A 16-bit picture whose largest value
/// is 2^k - 1, k > 8, is taken to have k bits. Throws `std::invalid_argument` for any other depth or without pixels.
GreyPicture greyPictureOf(const cv::Mat& picture);

}  // namespace refine
