#include "board/print/Png.h"

#include <fmt/format.h>

#include <cmath>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <stdexcept>
#include <vector>

#include "board/print/CairoSheet.h"
#include "board/print/PngDensity.h"
#include "polarline/errors.h"

namespace boards {
namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kMostPixels = 5e8;
constexpr double kLongestSide = 32767.0;  ///< Of the drawing library's pictures.
constexpr double kLeastDotRadius = 2.0;   ///< Pixels.

void requireDensity(const Sheet& sheet, double dpi, double smallest_dot) {
  const double least = std::ceil(kLeastDotRadius * kMillimetresPerInch / smallest_dot);
  const double area = sheet.width * sheet.height / (kMillimetresPerInch * kMillimetresPerInch);
  const double longest = std::max(sheet.width, sheet.height) / kMillimetresPerInch;
  const double most = std::floor(std::min(std::sqrt(kMostPixels / area), kLongestSide / longest));
  if (dpi >= least && dpi <= most) return;  // Never so for NaN.
  throw polarline::InputError("dpi", fmt::format("found {}, wanted {} to {} for this board", dpi, least, most));
}

/// How much of each pixel is ink, 0 to 255.
cv::Mat inkOf(const Sheet& sheet, double pixels) {
  const int width = static_cast<int>(std::ceil(sheet.width * pixels));
  const int height = static_cast<int>(std::ceil(sheet.height * pixels));
  const Surface surface(cairo_image_surface_create(CAIRO_FORMAT_A8, width, height));
  requireDrawn(cairo_surface_status(surface.get()));
  paint(sheet, surface.get(), pixels, false);
  cairo_surface_flush(surface.get());
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(surface.get()));
  return cv::Mat(height, width, CV_8UC1, cairo_image_surface_get_data(surface.get()), stride).clone();
}

}  // namespace

std::string pngOf(const Sheet& sheet, double dpi, double smallest_dot) {
  requireDensity(sheet, dpi, smallest_dot);
  cv::Mat picture = inkOf(sheet, dpi / kMillimetresPerInch);
  cv::bitwise_not(picture, picture);
  std::vector<unsigned char> bytes;
  if (!cv::imencode(".png", picture, bytes)) throw std::runtime_error("the board can't be written as PNG");
  std::string png(bytes.begin(), bytes.end());
  enterDensity(png, dpi);
  return png;
}

}  // namespace boards
