#include "tools/scene/PolyFit.h"

#include <algorithm>
#include <opencv2/core.hpp>
#include <vector>

#include "tools/scene/Lens.h"
#include "tools/scene/PolyBasis.h"
#include "tools/scene/PolyLens.h"

namespace scene {
namespace {

constexpr int kSamples = 20;           ///< Fit points along each side of a cell.
constexpr double kOverlap = 0.05;      ///< Share of a cell by which the fit reaches into its neighbours.
constexpr double kOutside = 0.01;      ///< Normalised reach beyond the field that the image shows.
constexpr double kBorderWeight = 1e5;  ///< Squared weight of a border point against a fit point.

/// The ideal points that the lens brings into the image, from the image's border.
Box fieldOf(const Camera& lens) {
  Box box;
  for (int k = 0; k <= 40; ++k) {
    const double u = lens.width * k / 40.0;
    const double v = lens.height * k / 40.0;
    for (const Point2 pixel :
         {Point2{u, 0.0}, Point2{u, 1.0 * lens.height}, Point2{0.0, v}, Point2{1.0 * lens.width, v}}) {
      const Point2 raw = rawFromPixel(lens, pixel);
      const Point2 ideal = undistort(lens, raw).value_or(raw);
      box = {std::min(box.x0, ideal.x), std::min(box.y0, ideal.y), std::max(box.x1, ideal.x),
             std::max(box.y1, ideal.y)};
    }
  }
  return {box.x0 - kOutside, box.y0 - kOutside, box.x1 + kOutside, box.y1 + kOutside};
}

/// The joint least-squares problem of all cells, as normal equations: ten unknowns a cell, two right-hand sides.
class JointFit {
 public:
  JointFit(const Camera& lens, int columns, int rows)
      : lens_(lens),
        columns_(columns),
        rows_(rows),
        normal_(cv::Mat::zeros(10 * columns * rows, 10 * columns * rows, CV_64F)),
        right_(cv::Mat::zeros(10 * columns * rows, 2, CV_64F)) {
    Camera grid = lens;
    grid.table.columns = columns;
    grid.table.rows = rows;
    const PolyCells cells = polyCells(grid);
    const Box field = fieldOf(lens);
    for (int cell = 0; cell < columns * rows; ++cell)
      boxes_.push_back(boxOf(cells, field, cell % columns, cell / columns));
    for (int cell = 0; cell < columns * rows; ++cell) addCell(cells, cell);
  }

  [[nodiscard]] PolyTable solved() const {
    cv::Mat unknowns;
    cv::solve(normal_, right_, unknowns, cv::DECOMP_CHOLESKY);
    PolyTable table{columns_, rows_, {}, {}};
    for (int cell = 0; cell < columns_ * rows_; ++cell) {
      append(table.x, unknowns, cell, 0);
      append(table.y, unknowns, cell, 1);
    }
    return table;
  }

 private:
  [[nodiscard]] Box boxOf(const PolyCells& cells, const Box& field, int column, int row) const {
    const Point2 low{cells.x_min + column * cells.cell_w, cells.y_min + row * cells.cell_h};
    Box box{low.x - kOverlap * cells.cell_w, low.y - kOverlap * cells.cell_h, low.x + (1.0 + kOverlap) * cells.cell_w,
            low.y + (1.0 + kOverlap) * cells.cell_h};
    if (column == 0) box.x0 = field.x0;
    if (row == 0) box.y0 = field.y0;
    if (column == columns_ - 1) box.x1 = field.x1;
    if (row == rows_ - 1) box.y1 = field.y1;
    return box;
  }

  [[nodiscard]] const Box& box(int cell) const { return boxes_[static_cast<std::size_t>(cell)]; }

  void addCell(const PolyCells& cells, int cell) {
    for (int j = 0; j < kSamples; ++j) {
      for (int i = 0; i < kSamples; ++i) addFitPoint(cell, box(cell).at(i / (kSamples - 1.0), j / (kSamples - 1.0)));
    }
    const int column = cell % columns_;
    const int row = cell / columns_;
    for (int k = 0; k < kSamples; ++k) {
      const Point2 along = box(cell).at(k / (kSamples - 1.0), k / (kSamples - 1.0));
      const Point2 corner{cells.x_min + (column + 1) * cells.cell_w, cells.y_min + (row + 1) * cells.cell_h};
      if (column + 1 < columns_) addBorderPoint(cell, cell + 1, {corner.x, along.y});
      if (row + 1 < rows_) addBorderPoint(cell, cell + columns_, {along.x, corner.y});
    }
  }

  /// The cell's cubics shall give what the lens takes off the ideal point.
  void addFitPoint(int cell, Point2 ideal) {
    const Point2 wanted = ideal - distort(lens_, ideal).point;
    const Ten monomials = localMonomials(box(cell), ideal);
    addProducts(cell, monomials, cell, monomials, 1.0);
    for (int k = 0; k < 10; ++k) {
      right_.at<double>(10 * cell + k, 0) += monomials.at(static_cast<std::size_t>(k)) * wanted.x;
      right_.at<double>(10 * cell + k, 1) += monomials.at(static_cast<std::size_t>(k)) * wanted.y;
    }
  }

  /// Two cells shall give the same.
  void addBorderPoint(int cell, int neighbour, Point2 point) {
    const Ten here = localMonomials(box(cell), point);
    const Ten there = localMonomials(box(neighbour), point);
    addProducts(cell, here, cell, here, kBorderWeight);
    addProducts(neighbour, there, neighbour, there, kBorderWeight);
    addProducts(cell, here, neighbour, there, -kBorderWeight);
    addProducts(neighbour, there, cell, here, -kBorderWeight);
  }

  void addProducts(int cell_a, const Ten& a, int cell_b, const Ten& b, double weight) {
    for (int i = 0; i < 10; ++i) {
      for (int j = 0; j < 10; ++j) {
        normal_.at<double>(10 * cell_a + i, 10 * cell_b + j) +=
            weight * a.at(static_cast<std::size_t>(i)) * b.at(static_cast<std::size_t>(j));
      }
    }
  }

  void append(std::vector<float>& coefficients, const cv::Mat& unknowns, int cell, int side) const {
    Ten local{};
    for (int k = 0; k < 10; ++k) local.at(static_cast<std::size_t>(k)) = unknowns.at<double>(10 * cell + k, side);
    for (const double value : globalCoefficients(box(cell), local)) coefficients.push_back(static_cast<float>(value));
  }

  const Camera& lens_;
  int columns_, rows_;
  cv::Mat normal_, right_;
  std::vector<Box> boxes_;
};

}  // namespace

Camera fitPolyCamera(const Camera& lens, int columns, int rows) {
  Camera poly = lens;
  poly.table = JointFit(lens, columns, rows).solved();
  poly.model = LensModel::kPoly;
  poly.lens = {};
  return poly;
}

Camera fittedPolyCamera(Camera lens) {
  lens.model = LensModel::kBrown;
  return fitPolyCamera(lens, lens.table.columns, lens.table.rows);
}

}  // namespace scene
