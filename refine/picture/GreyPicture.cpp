#include "refine/picture/GreyPicture.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace refine {
namespace {

constexpr int kColours = 3;

template <typename Pixel>
double largestOf(const cv::Mat& picture) {
  Pixel largest = 0;
  const int values = picture.cols * picture.channels();
  for (int row = 0; row < picture.rows; ++row) {
    const auto* const from = picture.ptr<Pixel>(row);
    largest = std::max(largest, *std::max_element(from, from + values));
  }
  return largest;
}

/// The range of the sensor: of 16 bits only as many may be in use.
double rangeOf(const cv::Mat& picture) {
  if (picture.depth() == CV_8U) return 255.0;
  const double largest = largestOf<std::uint16_t>(picture);
  for (int bits = 9; bits < 16; ++bits) {
    const double end = std::ldexp(1.0, bits) - 1.0;
    if (largest == end) return end;
  }
  return 65535.0;
}

template <typename Pixel>
void mixColours(GreyPicture& result, const cv::Mat& picture) {
  const auto end = static_cast<Pixel>(result.range);
  const int channels = picture.channels(), colours = std::min(channels, kColours);
  const float share = 1.0F / static_cast<float>(colours);
  for (int row = 0; row < picture.rows; ++row) {
    const auto* from = picture.ptr<Pixel>(row);
    auto* const grey = result.grey.ptr<float>(row);
    auto* const clipped = result.clipped.ptr<std::uint8_t>(row);
    for (int column = 0; column < picture.cols; ++column, from += channels) {
      float sum = 0.0F;
      std::uint8_t at_end = 0;
      for (int colour = 0; colour < colours; ++colour) {
        sum += static_cast<float>(from[colour]);
        if (from[colour] == 0 || from[colour] >= end) at_end = 1;
      }
      grey[column] = sum * share;
      clipped[column] = at_end;
    }
  }
}

/// Bytes that come at once.
constexpr std::ptrdiff_t kCacheLine = 64;

/// By reading it and using nothing of it, as processors drop a mere hint for a page whose place they don't know, too.
void fetchLine(const std::uint8_t* at) { static_cast<void>(*static_cast<const volatile std::uint8_t*>(at)); }

}  // namespace

void GreyPicture::fetch(const cv::Point2d& centre, const cv::Point2d& half, int rows) const {
  const cv::Rect box(cv::Point(cv::Point2d(centre.x - half.x, centre.y - half.y)),
                     cv::Point(cv::Point2d(centre.x + half.x + 1.0, centre.y + half.y + 1.0)));
  const cv::Rect inside = box & cv::Rect(cv::Point(), grey.size());
  if (inside.empty()) return;
  const auto size = static_cast<std::ptrdiff_t>(grey.elemSize1());
  for (int row = (inside.y + rows - 1) / rows * rows; row < inside.y + inside.height; row += rows) {
    const auto* const first = grey.ptr<std::uint8_t>(row) + size * inside.x;
    const auto* const last = first + size * inside.width - 1;
    for (const auto* at = first; at < last; at += kCacheLine) fetchLine(at);
    fetchLine(last);
  }
}

GreyPicture greyPictureOf(const cv::Mat& picture) {
  if (picture.empty() || (picture.depth() != CV_8U && picture.depth() != CV_16U))
    throw std::invalid_argument("a picture of 8 or 16 bits a channel is wanted");
  GreyPicture result;
  result.range = rangeOf(picture);
  result.step = 1.0 / std::sqrt(std::min(picture.channels(), kColours));
  if (picture.channels() == 1) {
    result.grey = picture;
    return result;
  }
  result.grey.create(picture.size(), CV_32F);
  result.clipped.create(picture.size(), CV_8U);
  if (picture.depth() == CV_8U) {
    mixColours<std::uint8_t>(result, picture);
  } else {
    mixColours<std::uint16_t>(result, picture);
  }
  return result;
}

}  // namespace refine
