#include "Tallowfen/src/zernike/ZernikeMasks.h"

#include <boost/math/quadrature/gauss_kronrod.hpp>
#include <cmath>
#include <cstddef>

namespace kestrune {

namespace {

using Function = std::function<double(double, double)>;
using Bound = std::function<double(double)>;

// Points, depth and relative error (the root of a double's precision): exact to the last digits for these integrands.
constexpr unsigned kQuadraturePoints = 127;
constexpr unsigned kQuadratureDepth = 15;
constexpr double kQuadratureError = 1.4901161193847656e-08;

template <typename F>
double integrate(const F& f, double from, double to) {
  using Quadrature = boost::math::quadrature::gauss_kronrod<double, kQuadraturePoints>;
  return Quadrature::integrate(f, from, to, kQuadratureDepth, kQuadratureError);
}

double circleAt(double coordinate) { return std::sqrt(1 - coordinate * coordinate); }

struct Cell {
  double x;
  double y;
  double half;
};

// Outer integral over x; the bounds of y may depend on it.
double integrateOverX(const Function& f, const Cell& cell, const Bound& from, const Bound& to) {
  const auto column = [&](double x) { return integrate([&](double y) { return f(x, y); }, from(x), to(x)); };
  return integrate(column, cell.x - cell.half, cell.x + cell.half);
}

// Outer integral over y; the bounds of x may depend on it.
double integrateOverY(const Function& f, const Cell& cell, const Bound& from, const Bound& to) {
  const auto row = [&](double y) { return integrate([&](double x) { return f(x, y); }, from(y), to(y)); };
  return integrate(row, cell.y - cell.half, cell.y + cell.half);
}

// Rows and columns count from 1.
double cellIntegral(const Function& f, int row, int column, int size) {
  const bool end_row = row == 1 || row == size;
  const bool end_column = column == 1 || column == size;
  if (end_row && end_column) return 0;
  const double n = size;
  const Cell cell{(2 * column - n - 1) / n, (n + 1 - 2 * row) / n, 1 / n};
  const auto at = [](double value) { return [value](double) { return value; }; };
  const auto minusCircle = [](double coordinate) { return -circleAt(coordinate); };
  if (row == 1) return integrateOverX(f, cell, at(cell.y - cell.half), circleAt);
  if (row == size) return integrateOverX(f, cell, minusCircle, at(cell.y + cell.half));
  if (column == 1) return integrateOverY(f, cell, minusCircle, at(cell.x + cell.half));
  if (column == size) return integrateOverY(f, cell, at(cell.x - cell.half), circleAt);
  return integrateOverX(f, cell, at(cell.y - cell.half), at(cell.y + cell.half));
}

ZernikeMasks buildMasks(int size) {
  return {size, BuildZernikeMask([](double, double) { return 1.0; }, size),
          BuildZernikeMask([](double x, double) { return x; }, size),
          BuildZernikeMask([](double, double y) { return -y; }, size),
          BuildZernikeMask([](double x, double y) { return 2 * x * x + 2 * y * y - 1; }, size)};
}

}  // namespace

ZernikeMask BuildZernikeMask(const Function& f, int size) {
  ZernikeMask mask;
  mask.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  for (int row = 1; row <= size; ++row) {
    for (int column = 1; column <= size; ++column) mask.push_back(cellIntegral(f, row, column, size));
  }
  return mask;
}

const ZernikeMasks& zernikeMasks(int size) {
  static ZernikeMasks masks = buildMasks(size);
  if (masks.size != size) masks = buildMasks(size);
  return masks;
}

}  // namespace kestrune
