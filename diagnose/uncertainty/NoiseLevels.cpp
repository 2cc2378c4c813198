#include "diagnose/uncertainty/NoiseLevels.h"

#include <Eigen/Cholesky>
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace {

constexpr int kParabolaTerms = 6;
constexpr std::size_t kLeastForParabola = 120;  ///< Twenty a term.

using ParabolaTerms = Eigen::Matrix<double, kParabolaTerms, 1>;

/// The terms of a parabola over a board of that many places, which reaches from -1 to 1 along either axis.
class BoardParabola {
 public:
  explicit BoardParabola(const BoardGrid& grid)
      : half_rows_(0.5 * std::max(1, grid.rows() - 1)), half_columns_(0.5 * std::max(1, grid.columns() - 1)) {}

  ParabolaTerms at(int row, int column) const {
    const double y = row / half_rows_ - 1.0;
    const double x = column / half_columns_ - 1.0;
    ParabolaTerms terms;
    terms << 1.0, x, y, x * x, x * y, y * y;
    return terms;
  }

 private:
  double half_rows_, half_columns_;
};

/// Of the squares by their mean; none for few dots, for dots on a line and for no noise.
std::optional<ParabolaTerms> fitted(const BoardGrid& grid, const BoardParabola& parabola,
                                    const Eigen::Matrix2Xd& shifts) {
  const double mean = shifts.squaredNorm() / static_cast<double>(shifts.cols());
  if (grid.count() < kLeastForParabola || !(mean > 0.0)) return std::nullopt;
  Eigen::Matrix<double, kParabolaTerms, kParabolaTerms> normal =
      Eigen::Matrix<double, kParabolaTerms, kParabolaTerms>::Zero();
  ParabolaTerms right = ParabolaTerms::Zero();
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    const ParabolaTerms terms = parabola.at(grid.row(dot), grid.column(dot));
    normal += terms * terms.transpose();
    right += shifts.col(static_cast<Eigen::Index>(dot)).squaredNorm() / mean * terms;
  }
  const Eigen::LDLT<Eigen::Matrix<double, kParabolaTerms, kParabolaTerms>> solver(normal);
  if (!(solver.rcond() > 1e-6)) return std::nullopt;
  return solver.solve(right);
}

}  // namespace

NoiseLevels::NoiseLevels(const BoardGrid& grid, const Eigen::Matrix2Xd& shifts)
    : rows_(grid.rows()),
      columns_(grid.columns()),
      levels_(static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_), 1.0) {
  const BoardParabola parabola(grid);
  const auto terms = fitted(grid, parabola, shifts);
  if (!terms) return;
  constexpr double kLeast = 0.25;  // What the few squares at a corner make of it beyond is chance.
  constexpr double kMost = 4.0;
  std::size_t place = 0;
  for (int row = 0; row < rows_; ++row) {
    for (int column = 0; column < columns_; ++column)
      levels_[place++] = std::sqrt(std::clamp(terms->dot(parabola.at(row, column)), kLeast, kMost));
  }
  double squares = 0.0;
  for (std::size_t dot = 0; dot < grid.count(); ++dot) {
    const double level = at(grid.row(dot), grid.column(dot));
    squares += level * level;
  }
  const double whole = std::sqrt(static_cast<double>(grid.count()) / squares);
  for (double& level : levels_) level *= whole;
}

double NoiseLevels::at(int row, int column) const {
  const auto in_row = static_cast<std::size_t>(std::clamp(row, 0, rows_ - 1));
  const auto in_column = static_cast<std::size_t>(std::clamp(column, 0, columns_ - 1));
  return levels_[in_row * static_cast<std::size_t>(columns_) + in_column];
}
