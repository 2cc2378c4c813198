#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <opencv2/core.hpp>

#include "refine/outline/Outline.h"

namespace refine {

/// The picture of a mark: ink within the outline, in a ring paper again within the hole and ink within that one's core,
/// each edge blurred by a Gaussian, all of it in light that changes evenly.
struct EdgeModel {
  static constexpr std::size_t kMostEdges = 3;
  /// Centre (2), shape (3), paper, ink, blur, and the ratios of the inner edges.
  static constexpr std::size_t kMostUnknowns = 7 + kMostEdges;

  Outline outline;                            ///< Of the outer edge.
  double paper = 0.0, ink = 0.0;              ///< Greys at the light's origin.
  double blur = 0.8;                          ///< Standard deviation of the edge, pixels.
  std::size_t edges = 1;                      ///< With the outer one.
  std::array<double, kMostEdges> ratio{1.0};  ///< Radius of each edge by that of the outer one.
  std::array<cv::Point2d, kMostEdges>
      offset{};                     ///< Centre of each edge less that of the outer one, as perspective has it.
  cv::Point2d light, light_origin;  ///< Change of the light by pixel, as a share.

  std::size_t unknowns() const { return 7 + edges; }
};

/// A model's grey at a pixel and its derivatives by the unknowns, in their order.
struct EdgeGrey {
  double grey = 0.0;
  double outside = 0.0;  ///< Signed distance from the nearest edge, pixels; outside of the outer edge positive.
  std::array<double, EdgeModel::kMostUnknowns> slope{};
};

/// The edge of a circle much larger than its blur is that of a straight line, Phi(-t / s); the next term, of curvature,
/// moves it by s^2 / (2 r) on all sides alike and so leaves the centre alone.
inline EdgeGrey edgeGrey(const EdgeModel& model, double x, double y) {
  constexpr double kFlat = 5.5;
  const EdgePlace place = edgePlace(model.outline, x, y);
  const double nx = place.nx, ny = place.ny;
  const double light = 1.0 + model.light.x * (x - model.light_origin.x) + model.light.y * (y - model.light_origin.y);
  const double step = light * (model.ink - model.paper);
  EdgeGrey result;
  double covered = 0.0, by_along = 0.0, by_reach = 0.0, by_blur = 0.0;
  double nearest = 1e9;
  for (std::size_t k = 0; k < model.edges; ++k) {
    const double t = place.along - nx * model.offset[k].x - ny * model.offset[k].y - model.ratio[k] * place.reach;
    const double sign = k % 2 == 0 ? 1.0 : -1.0;
    const double u = t / model.blur;
    if (std::abs(t) < std::abs(nearest)) nearest = t;
    if (std::abs(u) > kFlat) {
      if (u < 0.0) covered += sign;
      continue;
    }
    covered += sign * 0.5 * std::erfc(u * (0.5 * std::numbers::sqrt2));
    const double bell =
        sign * std::exp(-0.5 * u * u) * (0.5 * std::numbers::inv_sqrtpi * std::numbers::sqrt2) / model.blur;
    by_along -= bell;
    by_reach += bell * model.ratio[k];
    by_blur += bell * u;
    if (k > 0) result.slope[7 + k] = step * bell * place.reach;
  }
  result.grey = light * model.paper + step * covered;
  result.outside = nearest;
  const double by_shape = step * by_reach * 0.5 / place.reach;
  result.slope[0] = -step * by_along * nx;
  result.slope[1] = -step * by_along * ny;
  result.slope[2] = by_shape * nx * nx;
  result.slope[3] = by_shape * 2.0 * nx * ny;
  result.slope[4] = by_shape * ny * ny;
  result.slope[5] = light * (1.0 - covered);
  result.slope[6] = light * covered;
  result.slope[7] = step * by_blur;
  return result;
}

}  // namespace refine
