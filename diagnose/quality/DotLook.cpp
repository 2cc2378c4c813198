#include "diagnose/quality/DotLook.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "platform/Median.h"

namespace diagnose {
namespace {

/// Of half the way to the neighbour: what lies nearer is middle, what lies farther is ground.
constexpr double kMiddle = 0.3;
constexpr double kGround = 0.84;

double bendAt(const cv::Mat& picture, int x, int y) {
  if (x < 1 || y < 1 || x + 1 >= picture.cols || y + 1 >= picture.rows) return 0.0;
  const auto* const above = picture.ptr<float>(y - 1);
  const auto* const here = picture.ptr<float>(y);
  const auto* const below = picture.ptr<float>(y + 1);
  return above[x - 1] - 2.0 * above[x] + above[x + 1] - 2.0 * here[x - 1] + 4.0 * here[x] - 2.0 * here[x + 1] +
         below[x - 1] - 2.0 * below[x] + below[x + 1];
}

std::vector<NearPixel> pixelsNear(const cv::Mat& picture, const DotFrame& frame, const cv::Rect& box, double reach) {
  const cv::Matx22d board_from_pixel = frame.axes.inv();
  std::vector<NearPixel> near;
  near.reserve(static_cast<std::size_t>(box.area()));
  for (int y = box.y; y < box.y + box.height; ++y) {
    const auto* const row = picture.ptr<float>(y);
    for (int x = box.x; x < box.x + box.width; ++x) {
      const cv::Vec2d offset = board_from_pixel * cv::Vec2d(x - frame.pixel.x, y - frame.pixel.y);
      const double distance = std::hypot(offset[0], offset[1]);
      if (distance >= reach) continue;
      const cv::Vec2d slope = board_from_pixel.t() * (distance > 0.0 ? offset / distance : cv::Vec2d(1.0, 0.0));
      near.push_back({row[x], distance, 1.0 / std::hypot(slope[0], slope[1]), std::atan2(slope[1], slope[0]),
                      bendAt(picture, x, y)});
    }
  }
  return near;
}

double levelOf(const std::vector<NearPixel>& pixels, double from, double to) {
  std::vector<double> greys;
  for (const NearPixel& pixel : pixels) {
    if (pixel.reach >= from && pixel.reach < to) greys.push_back(pixel.grey);
  }
  return rank::median(std::move(greys));
}

/// Of a picture whose rows and columns lie so far apart, as far as the dot's own surround goes.
cv::Rect boxAround(const DotFrame& frame, double reach) {
  const double half_width = reach * std::hypot(frame.axes(0, 0), frame.axes(0, 1));
  const double half_height = reach * std::hypot(frame.axes(1, 0), frame.axes(1, 1));
  const cv::Point first(static_cast<int>(std::floor(frame.pixel.x - half_width)),
                        static_cast<int>(std::floor(frame.pixel.y - half_height)));
  const cv::Point last(static_cast<int>(std::ceil(frame.pixel.x + half_width)),
                       static_cast<int>(std::ceil(frame.pixel.y + half_height)));
  return {first, cv::Size(last.x - first.x + 1, last.y - first.y + 1)};
}

}  // namespace

std::optional<DotLook> lookAtDot(const cv::Mat& picture, const DotFrame& frame, double row_step) {
  const double reach = 0.5 * std::min(1.0, row_step);
  const cv::Rect box = boxAround(frame, reach);
  if ((box & cv::Rect({0, 0}, picture.size())) != box) return std::nullopt;
  DotLook look;
  look.pixels = pixelsNear(picture, frame, box, reach);
  look.dot = levelOf(look.pixels, 0.0, kMiddle * reach);
  look.ground = levelOf(look.pixels, kGround * reach, reach);
  const double contrast = look.ground - look.dot;
  if (!(std::abs(contrast) > 0.0)) return std::nullopt;
  double taken = 0.0;
  for (const NearPixel& pixel : look.pixels) taken += (look.ground - pixel.grey) / contrast;
  const double area = std::abs(cv::determinant(frame.axes));
  look.radius = std::sqrt(std::max(0.0, taken) / (std::numbers::pi * area));
  look.axes_scale = std::sqrt(area);
  return look;
}

}  // namespace diagnose
