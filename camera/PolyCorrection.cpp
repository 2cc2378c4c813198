#include "camera/PolyCorrection.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "input/PolyTables.h"

namespace {

struct Monomials {
  double x, y, x2, xy, y2, x3, x2y, xy2, y3;
};

// Each product is rounded to single precision before the next one is formed.
Monomials monomials(const cv::Point2d& point) {
  const auto x = static_cast<float>(point.x);
  const auto y = static_cast<float>(point.y);
  const auto x2 = static_cast<float>(x * x);
  const auto y2 = static_cast<float>(y * y);
  const auto y3 = static_cast<float>(y2 * y);
  const auto xy2 = static_cast<float>(y2 * x);
  const auto x2y = static_cast<float>(x2 * y);
  const auto x3 = static_cast<float>(x2 * x);
  const auto xy = static_cast<float>(y * x);
  return {x, y, x2, xy, y2, x3, x2y, xy2, y3};
}

std::array<double, kCoefficientsPerCell> widened(std::span<const float> coefficients) {
  std::array<double, kCoefficientsPerCell> wide{};
  for (std::size_t k = 0; k < wide.size(); ++k) wide[k] = static_cast<double>(coefficients[k]);
  return wide;
}

// The linear x term comes before the constant: the order of the sum is part of the figures.
double correctionOf(const Monomials& m, std::span<const float> coefficients) {
  const auto c = widened(coefficients);
  const double sum = m.x * c[1] + c[0] + m.y * c[2] + m.x2 * c[3] + m.xy * c[4] + m.y2 * c[5] + m.x3 * c[6] +
                     m.x2y * c[7] + m.xy2 * c[8] + m.y3 * c[9];
  const auto narrowed = static_cast<float>(sum);
  return -narrowed;
}

// Clamped before the conversion to an integer, so that no value is out of range. The first comparison is false for NaN.
std::uint64_t clampedIndex(double position, std::uint64_t count) {
  if (!(position >= 0.0)) return 0;
  if (position >= static_cast<double>(count)) return count - 1;
  return static_cast<std::uint64_t>(position);
}

}  // namespace

cv::Point2d polyCorrection(const Image& grid, std::span<const float> table_x, std::span<const float> table_y,
                           const cv::Point2d& normalised, double cell_bias) {
  const auto i = clampedIndex((normalised.x - grid.x_min) / grid.cell_w + cell_bias, grid.columns);
  const auto j = clampedIndex((normalised.y - grid.y_min) / grid.cell_h + cell_bias, grid.rows);
  const auto first = static_cast<std::size_t>(j * grid.columns + i) * kCoefficientsPerCell;
  const Monomials terms = monomials(normalised);
  return {correctionOf(terms, table_x.subspan(first, kCoefficientsPerCell)),
          correctionOf(terms, table_y.subspan(first, kCoefficientsPerCell))};
}
