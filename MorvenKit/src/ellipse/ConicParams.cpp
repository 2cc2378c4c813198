#include "MorvenKit/src/ellipse/ConicParams.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace kestrune::morvenkit {

namespace {

/// x^2 + B x y + C y^2 + D x + E y + F = 0, pixels.
struct PixelConic {
  double B, C, D, E, F;
};

PixelConic toPixels(const ConicCoefficients& c, const MeanStd& scale) {
  const double mx = scale.mx, my = scale.my;
  const double i = 1.0 / scale.sx, j = 1.0 / scale.sy;
  const double A = i * i;
  const double B = c[0] * i * j;
  const double C = c[1] * (j * j);
  const double D = -2.0 * mx * A - B * my + c[2] * i;
  const double E = -2.0 * my * C - B * mx + c[3] * j;
  const double F = mx * my * B + mx * mx * A + my * my * C - mx * c[2] * i - my * c[3] * j + c[4];
  if (std::abs(A) < std::numeric_limits<double>::epsilon()) {
    throw std::runtime_error("[Ellipse::getParamsFromConic] invalid conic params");
  }
  return {B / A, C / A, D / A, E / A, F / A};
}

double orientation(const PixelConic& conic, double a, double b) {
  const double a2 = a * a, b2 = b * b;
  const double across = a2 - b2 * conic.C, along = conic.C * a2 - b2;
  // An exact circle has no orientation: 0 instead of the NaN of 0 / 0, as the residuals are formed in the turned frame.
  if (across == 0.0 && along == 0.0) return 0.0;
  const double angle = std::atan(std::sqrt(std::abs(across / along)));
  return (conic.B / conic.C) * (b - a) < 0.0 ? -angle : angle;
}

}  // namespace

void getParamsFromConic(const ConicCoefficients& conic, const MeanStd& scale, Ellipse<double>& ellipse) {
  const PixelConic pixel = toPixels(conic, scale);
  const auto [B, C, D, E, F] = pixel;
  const double q = B * B - 4.0 * C;
  ellipse.x = (2.0 * C * D - E * B) / q;
  ellipse.y = (2.0 * E - D * B) / q;
  const double g = 2.0 * (D * B * E - C * D * D - E * E + 4.0 * C * F - B * B * F) / q;
  const double r = std::sqrt((1.0 - C) * (1.0 - C) + B * B);
  ellipse.semi_a = std::sqrt(std::abs(g / (C + 1.0 - r)));
  ellipse.semi_b = std::sqrt(std::abs(g / (C + 1.0 + r)));
  ellipse.angle = orientation(pixel, ellipse.semi_a, ellipse.semi_b);
}

}  // namespace kestrune::morvenkit
