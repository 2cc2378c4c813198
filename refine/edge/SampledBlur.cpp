#include "refine/edge/SampledBlur.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace refine {
namespace {

constexpr double kPixelVariance = 1.0 / 12.0;
constexpr double kLeastVariance = 0.04;
constexpr int kMostReach = 12;
constexpr double kReach = 4.0;  ///< Standard deviations.

/// The sampled Gaussian, one half with the middle.
struct Filter {
  std::array<float, kMostReach + 1> weight{};
  int reach = 0;
};

Filter filterOf(double blur) {
  const double variance = std::max(blur * blur - kPixelVariance, kLeastVariance);
  Filter filter;
  filter.reach = std::min(static_cast<int>(std::ceil(kReach * std::sqrt(variance))), kMostReach);
  double sum = 0.0;
  for (int k = 0; k <= filter.reach; ++k) sum += (k == 0 ? 1.0 : 2.0) * std::exp(-0.5 * k * k / variance);
  for (int k = 0; k <= filter.reach; ++k)
    filter.weight[static_cast<std::size_t>(k)] = static_cast<float>(std::exp(-0.5 * k * k / variance) / sum);
  return filter;
}

/// Integral of the positive part, squared and halved.
inline float ramp(float x) {
  const float positive = std::max(x, 0.0F);
  return 0.5F * positive * positive;
}

/// Share of a unit square on the near side of a straight line at the distance t from its middle, whose normal is (a, b)
/// with both positive: the integral of a box of a width convolved with one of b.
inline float shareOf(float t, float a, float b) {
  const float wide = std::max(a, 1e-3F), high = std::max(b, 1e-3F);
  const float sum = 0.5F * (wide + high), difference = 0.5F * (wide - high);
  const float area = ramp(sum - t) - ramp(difference - t) - ramp(-difference - t) + ramp(-sum - t);
  return std::clamp(area / (wide * high), 0.0F, 1.0F);
}

/// Half the way from the first to the last column of a row whose pixels lie wholly within the innermost edge.
float wholeWithin(const EdgeModel& model, double dy) {
  constexpr double kHalfDiagonal = 0.75;
  double least = model.outline.leastRadius();
  for (std::size_t k = 0; k < model.edges; ++k)
    least = std::min(least, model.ratio[k] * model.outline.leastRadius() - cv::norm(model.offset[k]));
  const double hollow = std::max(least - kHalfDiagonal, 0.0);
  return static_cast<float>(std::sqrt(std::max(hollow * hollow - dy * dy, 0.0)));
}

/// Share of ink of a row of pixels.
void coverRow(const EdgeModel& model, int first_column, int row, cv::Mat& covered, int to_row) {
  const Outline& outline = model.outline;
  const auto xx = static_cast<float>(outline.xx), xy = static_cast<float>(outline.xy),
             yy = static_cast<float>(outline.yy);
  const auto left = static_cast<float>(first_column - outline.centre.x);
  const auto dy = static_cast<float>(row - outline.centre.y);
  const float whole = wholeWithin(model, row - outline.centre.y);
  const float innermost = model.edges % 2 == 0 ? 0.0F : 1.0F;
  auto* const to = covered.ptr<float>(to_row);
  for (int column = 0; column < covered.cols; ++column) {
    const float dx = left + static_cast<float>(column);
    if (std::abs(dx) < whole) {
      to[column] = innermost;
      continue;
    }
    const float mx = yy * dx - xy * dy, my = xx * dy - xy * dx;
    const float by_length = 1.0F / std::sqrt(mx * mx + my * my + 1e-20F);
    const float nx = mx * by_length, ny = my * by_length;
    const float reach = std::sqrt(xx * nx * nx + 2.0F * xy * nx * ny + yy * ny * ny + 1e-12F);
    const float along = nx * dx + ny * dy;
    float share = 0.0F;
    for (std::size_t k = 0; k < model.edges; ++k) {
      const float t = along - nx * static_cast<float>(model.offset[k].x) - ny * static_cast<float>(model.offset[k].y) -
                      static_cast<float>(model.ratio[k]) * reach;
      const float inside = shareOf(t, std::abs(nx), std::abs(ny));
      share += k % 2 == 0 ? inside : -inside;
    }
    to[column] = share;
  }
}

/// Both sides of the middle.
inline float filtered(const float* middle, const Filter& filter) {
  float sum = filter.weight[0] * middle[0];
  for (int k = 1; k <= filter.reach; ++k) sum += filter.weight[static_cast<std::size_t>(k)] * (middle[-k] + middle[k]);
  return sum;
}

/// A row of the picture filtered down its columns; row by row, so that one instruction works on several columns.
void filterDown(const cv::Mat& covered, int row, const Filter& filter, float* to) {
  const auto* const middle = covered.ptr<float>(row);
  for (int column = 0; column < covered.cols; ++column) to[column] = filter.weight[0] * middle[column];
  for (int k = 1; k <= filter.reach; ++k) {
    const float weight = filter.weight[static_cast<std::size_t>(k)];
    const auto* const above = covered.ptr<float>(row - k);
    const auto* const below = covered.ptr<float>(row + k);
    for (int column = 0; column < covered.cols; ++column) to[column] += weight * (above[column] + below[column]);
  }
}

void grow(cv::Mat& memory, const cv::Size& size) {
  if (memory.rows < size.height || memory.cols < size.width)
    memory.create(std::max(memory.rows, size.height), std::max(memory.cols, size.width), CV_32F);
}

}  // namespace

void takeOffSampling(const EdgeModel& model, EdgeTable& table, SampledBlurMemory& memory) {
  if (table.size() == 0) return;
  const Filter filter = filterOf(model.blur);
  cv::Point low = table.pixel(0), high = low;
  for (Eigen::Index i = 1; i < table.size(); ++i) {
    const cv::Point pixel = table.pixel(i);
    low = {std::min(low.x, pixel.x), std::min(low.y, pixel.y)};
    high = {std::max(high.x, pixel.x), std::max(high.y, pixel.y)};
  }
  const int reach = filter.reach;
  const cv::Size size(high.x - low.x + 1 + 2 * reach, high.y - low.y + 1 + 2 * reach);
  for (cv::Mat* mat : {&memory.covered, &memory.down}) grow(*mat, size);
  cv::Mat covered = memory.covered(cv::Rect({0, 0}, size)), down = memory.down(cv::Rect({0, 0}, size));
  for (int row = 0; row < size.height; ++row) coverRow(model, low.x - reach, low.y - reach + row, covered, row);
  for (int row = reach; row < size.height - reach; ++row) filterDown(covered, row, filter, down.ptr<float>(row));
  const auto step = static_cast<float>(model.ink - model.paper), paper = static_cast<float>(model.paper);
  for (Eigen::Index i = 0; i < table.size(); ++i) {
    const cv::Point at = table.pixel(i) - low;
    const float share = filtered(down.ptr<float>(at.y + reach) + at.x + reach, filter);
    const auto light = static_cast<float>(1.0 + model.light.dot(cv::Point2d(at + low) - model.light_origin));
    table.correct(i, light * (paper + step * share) - table.modelGrey()(i));
  }
}

}  // namespace refine
