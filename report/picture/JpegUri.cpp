#include "report/picture/JpegUri.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <string_view>

namespace polarline {
namespace {

/// Columns that a page shows sharp on a large screen.
constexpr int kMostColumns = 1224;
/// A dot is still round; a picture has about 150 kB.
constexpr int kQuality = 40;
constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

cv::Mat fitted(const cv::Mat& picture) {
  if (picture.cols <= kMostColumns) return picture;
  const double factor = static_cast<double>(kMostColumns) / picture.cols;
  cv::Mat small;
  const cv::Size size(kMostColumns, std::max(1, cvRound(picture.rows * factor)));
  cv::resize(picture, small, size, 0.0, 0.0, cv::INTER_AREA);
  return small;
}

}  // namespace

std::string base64(const std::vector<unsigned char>& bytes) {
  constexpr std::size_t kGroup = 3;
  std::string text;
  text.reserve((bytes.size() + 2) / kGroup * 4);
  for (std::size_t k = 0; k < bytes.size(); k += kGroup) {
    const std::size_t count = std::min(kGroup, bytes.size() - k);
    std::uint32_t bits = 0;
    for (std::size_t j = 0; j < kGroup; ++j) bits = bits << 8U | (j < count ? bytes[k + j] : 0U);
    for (std::size_t j = 0; j < 4; ++j) text += j <= count ? kDigits[bits >> (18U - 6U * j) & 0x3FU] : '=';
  }
  return text;
}

std::string jpegUri(const cv::Mat& picture) {
  std::vector<unsigned char> bytes;
  cv::imencode(".jpg", fitted(picture), bytes, {cv::IMWRITE_JPEG_QUALITY, kQuality});
  return "data:image/jpeg;base64," + base64(bytes);
}

}  // namespace polarline
