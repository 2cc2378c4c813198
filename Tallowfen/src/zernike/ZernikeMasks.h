#pragma once

#include <functional>
#include <vector>

namespace kestrune {

/// An N x N mask, row by row.
using ZernikeMask = std::vector<double>;

/// Moments of an N x N neighbourhood, inscribed in the unit disk with y upwards, against the first Zernike polynomials
/// (Ghosal and Mehrotra 1993).
struct ZernikeMasks {
  int size = 0;      ///< N, cells a side.
  ZernikeMask M_00;  ///< 1. Not read: kept as one of the four.
  ZernikeMask M_x;   ///< x, growing with the columns.
  ZernikeMask M_y;   ///< -y, growing with the rows.
  ZernikeMask M_20;  ///< 2 x^2 + 2 y^2 - 1.
};

/// Integral of `f`(x, y) over each cell. Cells of the first and last row or column reach to the unit circle instead of
/// their own outer side; the others are taken whole, also where they pass the circle; the four corners are 0.
ZernikeMask BuildZernikeMask(const std::function<double(double, double)>& f, int size);

/// The masks of a size, built at first use and kept for the process; another size replaces them. Threads may share the
/// first use, but not a change of size.
const ZernikeMasks& zernikeMasks(int size);

}  // namespace kestrune
