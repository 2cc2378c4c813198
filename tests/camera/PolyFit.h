#pragma once

#include <Eigen/Dense>
#include <functional>
#include <opencv2/core.hpp>

#include "camera/Image.h"
#include "input/PolyTables.h"

/// A lens as a function from ideal to raw normalised points.
using LensFunction = std::function<cv::Point2d(const cv::Point2d&)>;

/// A strong barrel lens, r (1 + k1 r^2 + k2 r^4).
inline LensFunction radialLens(double k1, double k2) {
  return [=](const cv::Point2d& ideal) {
    const double r2 = ideal.dot(ideal);
    return ideal * (1.0 + k1 * r2 + k2 * r2 * r2);
  };
}

/// Least-squares cubics of what the lens takes off each point, one pair a cell, from a grid of samples that reaches the
/// cell's borders.
inline PolyTables fitPolyTables(const Image& grid, const LensFunction& lens) {
  constexpr int kSamples = 13;
  PolyTables tables;
  tables.cells_x = static_cast<std::uint8_t>(grid.columns);
  tables.cells_y = static_cast<std::uint8_t>(grid.rows);
  for (std::size_t cell = 0; cell < grid.columns * grid.rows; ++cell) {
    Eigen::MatrixXd terms(kSamples * kSamples, 10);
    Eigen::MatrixXd taken(kSamples * kSamples, 2);
    for (int n = 0; n < kSamples * kSamples; ++n) {
      const double across = static_cast<double>(cell % grid.columns) + (n % kSamples) / (kSamples - 1.0);
      const double down = static_cast<double>(cell / grid.columns) + (n / kSamples) / (kSamples - 1.0);
      const cv::Point2d p(grid.x_min + across * grid.cell_w, grid.y_min + down * grid.cell_h);
      const double x = p.x;
      const double y = p.y;
      terms.row(n) << 1, x, y, x * x, x * y, y * y, x * x * x, x * x * y, x * y * y, y * y * y;
      const cv::Point2d off = p - lens(p);
      taken.row(n) << off.x, off.y;
    }
    const Eigen::MatrixXd fitted = terms.colPivHouseholderQr().solve(taken);
    for (int k = 0; k < 10; ++k) {
      tables.x[cell * 10 + static_cast<std::size_t>(k)] = static_cast<float>(fitted(k, 0));
      tables.y[cell * 10 + static_cast<std::size_t>(k)] = static_cast<float>(fitted(k, 1));
    }
  }
  return tables;
}
