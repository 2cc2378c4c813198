#include "camera/PolyCorrectionRow.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

#include "camera/PolyCorrection.h"

namespace {

/// A camera's grid, whose cells have no round borders, with tables without symmetry.
struct PolyCorrectionRow : testing::Test {
  Image grid{640, 480, 500, 510, 311, 237, 5, 3};
  std::vector<float> table_x, table_y;
  std::mt19937 draw{11};

  PolyCorrectionRow() {
    std::normal_distribution<float> coefficients(0.0F, 0.1F);
    for (int k = 0; k < 5 * 3 * 10; ++k) {
      table_x.push_back(coefficients(draw));
      table_y.push_back(coefficients(draw));
    }
  }

  void expectSameBits(const std::vector<cv::Point2d>& points) {
    std::vector<double> x, y;
    for (const cv::Point2d& point : points) {
      x.push_back(point.x);
      y.push_back(point.y);
    }
    addPolyCorrections(grid, table_x, table_y, {x, y});
    for (std::size_t k = 0; k < points.size(); ++k) {
      const cv::Point2d expected = points[k] + polyCorrection(grid, table_x, table_y, points[k], 0.0);
      ASSERT_TRUE(same(x[k], expected.x) && same(y[k], expected.y)) << points[k] << " of " << points.size();
    }
  }
  static bool same(double a, double b) {
    return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
  }
};

TEST_F(PolyCorrectionRow, IsThatOfEachPointByItself) {
  std::uniform_real_distribution<double> across(-1.0, 1.0);  // Beyond the image on every side.
  for (const std::size_t count : {0U, 1U, 2U, 63U, 64U, 65U, 1000U}) {
    std::vector<cv::Point2d> points;
    for (std::size_t k = 0; k < count; ++k) points.emplace_back(across(draw), across(draw));
    expectSameBits(points);
  }
}

TEST_F(PolyCorrectionRow, NeighboursChangeTheCellWhereEachDoesByItself) {
  std::vector<cv::Point2d> points;
  for (int cell = 0; cell <= 5; ++cell) {
    double x = grid.x_min + cell * grid.cell_w;
    for (int step = 0; step < 8; ++step) x = std::nextafter(x, -10.0);
    for (int step = 0; step < 16; ++step, x = std::nextafter(x, 10.0)) points.emplace_back(x, grid.y_min + grid.cell_h);
  }
  expectSameBits(points);
}

TEST_F(PolyCorrectionRow, NoPointIsOutOfRange) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  expectSameBits({{kInfinity, 0.1}, {-kInfinity, 0.1}, {0.1, kInfinity}, {kNan, 0.1}, {0.1, kNan}, {1e300, -1e300}});
}

}  // namespace
