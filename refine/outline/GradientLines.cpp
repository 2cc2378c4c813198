#include "refine/outline/GradientLines.h"

#include <algorithm>
#include <cmath>

#include "refine/outline/DualConic.h"

namespace refine {
namespace {

constexpr int kOutlineRounds = 4;
constexpr double kResting = 0.06;  ///< Pixels; what follows refines further.
constexpr double kAcross = 0.7;    ///< Cosine between gradient and normal.
constexpr double kLeastEdge = 0.35, kGreatestEdge = 6.0;

struct Gradient {
  double x = 0.0, y = 0.0;
};

/// Differences over two pixels, smoothed across with the weights that turn least with the direction (Scharr 2000).
Gradient gradientAt(const GreyPicture& picture, int column, int row) {
  constexpr double kSide = 3.0 / 32.0, kMiddle = 10.0 / 32.0;
  return picture.withPixels([&](auto pixel) -> Gradient {
    const auto at = [&](int down, int across) -> double {
      return picture.grey.ptr<decltype(pixel)>(row + down)[column + across];
    };
    const double falling = at(1, 1) - at(-1, -1), rising = at(-1, 1) - at(1, -1);
    return {kSide * (falling + rising) + kMiddle * (at(0, 1) - at(0, -1)),
            kSide * (falling - rising) + kMiddle * (at(1, 0) - at(-1, 0))};
  });
}

struct Range {
  int first, last;
};

/// Pixels that have neighbours on both sides.
Range rangeOf(double centre, double half, int size) {
  return {static_cast<int>(std::ceil(std::max(centre - half, 1.0))),
          static_cast<int>(std::floor(std::min(centre + half, size - 2.0)))};
}

/// Sums over the lines of a band.
struct BandSums {
  DualConicFit fit;
  double weight = 0.0, squares = 0.0;

  explicit BandSums(const cv::Point2d& origin) : fit(origin) {}

  void add(const GreyPicture& picture, int column, int row, const Outline& around, const GradientBand& band) {
    const EdgePlace place = edgePlace(around, column, row);
    const double outside = place.outside();
    if (outside < -band.inner || outside > band.outer) return;
    const Gradient g = gradientAt(picture, column, row);
    const double squared = g.x * g.x + g.y * g.y;
    const double across = band.sign * (g.x * place.nx + g.y * place.ny);
    if (!(across > 0.0) || across * across < kAcross * kAcross * squared) return;
    const double length = std::sqrt(squared);
    fit.addLine(column, row, g.x / length, g.y / length, squared);
    weight += squared;
    squares += squared * outside * outside;
  }
};

BandSums sumsOf(const GreyPicture& picture, const Outline& around, const GradientBand& band) {
  BandSums sums(around.centre);
  const cv::Point2d half = around.halfBox();
  // Within this no pixel is near the outline.
  const double hollow = std::max(around.leastRadius() - band.inner, 0.0);
  const Range rows = rangeOf(around.centre.y, half.y + band.outer, picture.grey.rows);
  const Range columns = rangeOf(around.centre.x, half.x + band.outer, picture.grey.cols);
  for (int row = rows.first; row <= rows.last; ++row) {
    const double room = hollow * hollow - (row - around.centre.y) * (row - around.centre.y);
    const double skipped = room > 0.0 ? std::sqrt(room) : 0.0;
    for (int column = columns.first; column <= columns.last; ++column) {
      if (std::abs(column - around.centre.x) < skipped) continue;
      sums.add(picture, column, row, around, band);
    }
  }
  return sums;
}

}  // namespace

std::optional<GradientOutline> outlineOfGradients(const GreyPicture& picture, const Outline& expected,
                                                  const GradientBand& band) {
  GradientOutline result{expected};
  for (int round = 0; round < kOutlineRounds; ++round) {
    const BandSums sums = sumsOf(picture, result.outline, band);
    const std::optional<Outline> next = sums.fit.outline();
    if (!next) return std::nullopt;
    const cv::Point2d moved = next->centre - result.outline.centre;
    // Squared gradients of a Gaussian edge spread by half its variance; the difference over two pixels adds a third.
    const double variance = 2.0 * sums.squares / sums.weight - 1.0 / 3.0;
    result = {*next, std::clamp(std::sqrt(std::max(variance, 0.0)), kLeastEdge, kGreatestEdge)};
    const double grown = std::abs(next->radius() - expected.radius());
    if (!(grown < 0.4 * expected.radius() + 1.0)) return std::nullopt;
    if (std::abs(moved.x) + std::abs(moved.y) < kResting) break;
  }
  return result;
}

}  // namespace refine
