#include "diagnose/quality/MeasureQuality.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <optional>

#include "diagnose/quality/Coverage.h"
#include "diagnose/quality/DotLook.h"
#include "diagnose/quality/EdgeSpread.h"
#include "platform/Median.h"

namespace diagnose {
namespace {

using polarline::PictureQuality;

/// So many pixels tell all that there is to tell; of a larger picture every so many-th dot is looked at.
constexpr double kEnoughPixels = 200000.0;
/// A dot of another size is a marker.
constexpr double kAlike = 0.12;
/// The blur does not reach so far from an edge, pixels.
constexpr double kBeyondEdge = 2.5;
constexpr std::size_t kLeastFlatPixels = 60;

double fullScale(const cv::Mat& picture) {
  if (picture.depth() == CV_8U) return 255.0;
  double largest = 0.0;
  cv::minMaxLoc(picture.reshape(1), nullptr, &largest);
  for (const int bits : {8, 10, 12, 14}) {
    if (largest < std::exp2(bits)) return std::exp2(bits) - 1.0;
  }
  return 65535.0;
}

/// One grey a pixel, of colour the mean of the channels.
cv::Mat greyOf(const cv::Mat& picture) {
  cv::Mat grey;
  picture.convertTo(grey, CV_32F);
  const int channels = picture.channels();
  if (channels == 1) return grey;
  cv::transform(grey, grey, cv::Mat(1, channels, CV_32F, cv::Scalar(1.0 / channels)));
  return grey;
}

std::vector<DotFrame> someOf(const std::vector<DotFrame>& frames) {
  double pixels = 0.0;
  for (const DotFrame& frame : frames) pixels += std::abs(cv::determinant(frame.axes));
  const auto every = static_cast<std::size_t>(std::max(1.0, std::ceil(pixels / kEnoughPixels)));
  std::vector<DotFrame> some;
  for (std::size_t k = 0; k < frames.size(); k += every) some.push_back(frames[k]);
  return some;
}

std::vector<DotLook> looksAt(const cv::Mat& grey, const std::vector<DotFrame>& frames, double row_step) {
  std::vector<DotLook> looks;
  for (const DotFrame& frame : someOf(frames)) {
    if (auto look = lookAtDot(grey, frame, row_step)) looks.push_back(std::move(*look));
  }
  return looks;
}

template <typename ValueOf>
double medianOf(const std::vector<DotLook>& looks, const ValueOf& valueOf) {
  std::vector<double> values;
  values.reserve(looks.size());
  for (const DotLook& look : looks) values.push_back(valueOf(look));
  return rank::median(std::move(values));
}

std::vector<DotLook> plainOf(std::vector<DotLook> looks) {
  const double radius = medianOf(looks, [](const DotLook& look) { return look.radius; });
  const double contrast = medianOf(looks, [](const DotLook& look) { return look.ground - look.dot; });
  std::erase_if(looks, [&](const DotLook& look) {
    const bool is_alike = std::abs(look.radius - radius) <= kAlike * radius;
    return !is_alike || !((look.ground - look.dot) / contrast > 0.5);  // A ring's middle is ground.
  });
  return looks;
}

/// Immerkaer 1996: the mean size of the response to an operator that no plane and no straight slope answers.
double noiseOf(const std::vector<DotLook>& looks) {
  double sum = 0.0;
  std::size_t count = 0;
  for (const DotLook& look : looks) {
    for (const NearPixel& pixel : look.pixels) {
      if ((pixel.reach - look.radius) * pixel.pixels_a_step < kBeyondEdge) continue;
      sum += std::abs(pixel.bend);
      ++count;
    }
  }
  if (count < kLeastFlatPixels) return PictureQuality::kUnknown;
  return std::sqrt(0.5 * std::numbers::pi) / 6.0 * sum / static_cast<double>(count);
}

double saturatedOf(const std::vector<DotLook>& looks, double full_scale) {
  std::size_t full = 0;
  std::size_t all = 0;
  for (const DotLook& look : looks) {
    full += static_cast<std::size_t>(
        std::ranges::count_if(look.pixels, [&](const NearPixel& pixel) { return pixel.grey >= full_scale; }));
    all += look.pixels.size();
  }
  return static_cast<double>(full) / static_cast<double>(all);
}

void setWidths(const std::vector<DotLook>& looks, PictureQuality& quality) {
  EdgeSpread spread;
  for (const DotLook& look : looks) spread.add(look);
  const std::optional<EdgeWidths> widths = spread.widths();
  if (!widths) return;
  quality.edge_width = widths->mean;
  quality.edge_width_along = widths->along;
  quality.edge_width_across = widths->across;
  quality.blur_direction = widths->direction;
}

void measureDots(const std::vector<DotLook>& looks, PictureQuality& quality) {
  quality.dots = looks.size();
  quality.dot = medianOf(looks, [](const DotLook& look) { return look.dot; });
  quality.ground = medianOf(looks, [](const DotLook& look) { return look.ground; });
  quality.dot_radius = medianOf(looks, [](const DotLook& look) { return look.radius * look.axes_scale; });
  quality.saturated = saturatedOf(looks, quality.full_scale);
  quality.noise = noiseOf(looks);
  setWidths(looks, quality);
}

void measureWhole(const cv::Mat& grey, PictureQuality& quality) {
  constexpr double kPart = 0.05;
  const auto every =
      static_cast<int>(std::max(1.0, std::ceil(std::sqrt(static_cast<double>(grey.total()) / kEnoughPixels))));
  std::vector<double> greys;
  for (int y = 0; y < grey.rows; y += every) {
    for (int x = 0; x < grey.cols; x += every) greys.push_back(grey.at<float>(y, x));
  }
  const auto full = std::ranges::count_if(greys, [&](double value) { return value >= quality.full_scale; });
  quality.saturated = static_cast<double>(full) / static_cast<double>(greys.size());
  quality.dot = rank::quantile(greys, kPart);
  quality.ground = rank::quantile(std::move(greys), 1.0 - kPart);
}

}  // namespace

PictureQuality measureQuality(const cv::Mat& picture, const std::vector<NumberedDot>& dots, const DotGrid& grid) {
  PictureQuality quality;
  if (picture.empty() || (picture.depth() != CV_8U && picture.depth() != CV_16U)) return quality;
  quality.full_scale = fullScale(picture);
  const cv::Mat grey = greyOf(picture);
  const std::vector<DotFrame> frames = dotFrames(dots, grid);
  const std::vector<DotLook> looks = plainOf(looksAt(grey, frames, grid.row_step));
  if (looks.empty()) {
    measureWhole(grey, quality);
  } else {
    measureDots(looks, quality);
  }
  quality.contrast = std::abs(quality.ground - quality.dot) / quality.full_scale;
  const std::vector<cv::Point2f> outline = boardOutline(frames);
  if (!outline.empty())
    quality.board_share = std::min(1.0, cv::contourArea(outline) / static_cast<double>(picture.total()));
  return quality;
}

polarline::PairQuality pairQuality(const PictureQuality& left, const PictureQuality& right) {
  return {left, right, std::min(left.board_share, right.board_share)};
}

}  // namespace diagnose
