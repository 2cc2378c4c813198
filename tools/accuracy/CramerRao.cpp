#include "tools/accuracy/CramerRao.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "tools/scene/ImagedEllipse.h"

namespace accuracy {
namespace {

constexpr int kOutlinePoints = 64;
constexpr double kPixelVariance = 1.0 / 12.0;  ///< Of a pixel's square, which blurs as well.

/// Light at a pixel, as the renderer has it: falling off to the corners, and changing from side to side.
double lightAt(const Sight& sight, scene::Point2 pixel) {
  const scene::Optics& optics = sight.scene.optics;
  const double half_w = 0.5 * sight.camera.width, half_h = 0.5 * sight.camera.height;
  const double x = pixel.x + 0.5 - half_w, y = pixel.y + 0.5 - half_h;
  const double vignette = 1.0 - optics.vignette * (x * x + y * y) / (half_w * half_w + half_h * half_h);
  const double gradient =
      1.0 + optics.gradient_x * x / sight.camera.width + optics.gradient_y * y / sight.camera.height;
  return vignette * gradient;
}

/// Integral across an edge of the squared gradient by the noise's variance, per pixel of its length.
double energyAcross(const scene::Optics& optics, double light) {
  constexpr double kStep = 0.02;
  const double rounding = 255.0 / (std::ldexp(1.0, optics.bits) - 1.0);
  const double s = std::sqrt(optics.blur_sigma * optics.blur_sigma + kPixelVariance);
  const double contrast = light * (optics.paper - optics.ink);
  double sum = 0.0;
  for (double u = -5.0; u <= 5.0; u += kStep) {
    const double bell = std::exp(-0.5 * u * u) / std::sqrt(2.0 * std::numbers::pi);
    const double grey = light * optics.ink + contrast * 0.5 * std::erfc(-u / std::numbers::sqrt2);
    const double gradient = contrast * bell / s;
    double variance = optics.read_noise * optics.read_noise + optics.shot_noise * grey;
    variance = variance / optics.channels + rounding * rounding / 12.0 / optics.channels;
    sum += gradient * gradient / variance * kStep * s;
  }
  return sum;
}

}  // namespace

scene::Point2 cramerRaoBound(const Sight& sight, const scene::Mark& mark) {
  const scene::Board& board = sight.scene.board;
  const scene::Point3 centre = scene::gridPoint(board, mark.column, mark.row);
  double xx = 0.0, xy = 0.0, yy = 0.0;
  for (const double share : {mark.radii.outer, mark.radii.hollow, mark.radii.core}) {
    if (!(share > 0.0)) continue;
    for (int k = 0; k < kOutlinePoints; ++k) {
      const double step = 2.0 * std::numbers::pi / kOutlinePoints;
      const scene::OutlinePoint point =
          scene::outlinePoint(sight.camera, sight.camera_from_board, centre, share * board.step, k * step);
      const double length = std::hypot(point.along.x, point.along.y);
      const double nx = point.along.y / length, ny = -point.along.x / length;
      const double energy = energyAcross(sight.scene.optics, lightAt(sight, point.at)) * length * step;
      xx += energy * nx * nx;
      xy += energy * nx * ny;
      yy += energy * ny * ny;
    }
  }
  const double determinant = xx * yy - xy * xy;
  return {std::sqrt(yy / determinant), std::sqrt(xx / determinant)};
}

}  // namespace accuracy
