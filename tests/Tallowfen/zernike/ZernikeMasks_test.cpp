#include "Tallowfen/src/zernike/ZernikeMasks.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstddef>
#include <functional>
#include <string>

namespace {

using kestrune::ZernikeMask;
using kestrune::ZernikeMasks;
using kestrune::zernikeMasks;

constexpr int kSize = 7;
constexpr double kCell = 2.0 / kSize;

// The masks are good to some 1e-15 of their greatest values, 0.08.
constexpr double kTolerance = 2e-16;

double at(const ZernikeMask& mask, int row, int column) {
  return mask.at(static_cast<std::size_t>((row - 1) * kSize + column - 1));
}
double centreX(int column) { return (2.0 * column - kSize - 1) / kSize; }
double centreY(int row) { return (kSize + 1 - 2.0 * row) / kSize; }

// Composite Simpson rule: an error of 1e-16 on these smooth integrands.
double simpson(const std::function<double(double)>& f, double from, double to) {
  constexpr int kParts = 4000;
  const long double step = (static_cast<long double>(to) - from) / kParts;
  long double sum = f(from) + f(to);
  for (int i = 1; i < kParts; ++i) sum += (i % 2 == 0 ? 2.0L : 4.0L) * f(static_cast<double>(from + step * i));
  return static_cast<double>(sum * step / 3);
}

TEST(ZernikeMasks, InnerCellsAreTakenWhole) {
  const ZernikeMasks& masks = zernikeMasks(kSize);
  const double area = kCell * kCell;
  for (int row = 2; row < kSize; ++row) {
    for (int column = 2; column < kSize; ++column) {
      const double x = centreX(column), y = centreY(row);
      EXPECT_NEAR(at(masks.M_00, row, column), area, kTolerance);
      EXPECT_NEAR(at(masks.M_x, row, column), x * area, kTolerance);
      EXPECT_NEAR(at(masks.M_y, row, column), -y * area, kTolerance);
      // The mean of x^2 over a cell of side c is X^2 + c^2 / 12.
      EXPECT_NEAR(at(masks.M_20, row, column), (2 * (x * x + y * y) + kCell * kCell / 3 - 1) * area, kTolerance);
    }
  }
}

TEST(ZernikeMasks, CornersAreEmpty) {
  for (const int row : {1, kSize}) {
    for (const int column : {1, kSize}) {
      EXPECT_EQ(at(zernikeMasks(kSize).M_00, row, column), 0);
      EXPECT_EQ(at(zernikeMasks(kSize).M_x, row, column), 0);
      EXPECT_EQ(at(zernikeMasks(kSize).M_y, row, column), 0);
      EXPECT_EQ(at(zernikeMasks(kSize).M_20, row, column), 0);
    }
  }
}

// The first row's cells reach from the lower side y0 = 5/7 to the circle, also where it lies below that side, at |x| >
// sqrt(24)/7.
TEST(ZernikeMasks, FirstRowReachesToTheCircle) {
  const ZernikeMasks& masks = zernikeMasks(kSize);
  const double y0 = 5.0 / 7;
  for (int column = 2; column < kSize; ++column) {
    const double a = centreX(column) - kCell / 2, b = centreX(column) + kCell / 2;
    const auto between = [&](const auto& primitive) { return primitive(b) - primitive(a); };
    const auto circle = [](double x) { return std::sqrt(1 - x * x); };
    EXPECT_NEAR(at(masks.M_00, 1, column),
                between([&](double x) { return (x * circle(x) + std::asin(x)) / 2 - y0 * x; }), kTolerance);
    EXPECT_NEAR(at(masks.M_x, 1, column),
                between([&](double x) { return -std::pow(circle(x), 3) / 3 - y0 * x * x / 2; }), kTolerance);
    EXPECT_NEAR(at(masks.M_y, 1, column), between([&](double x) { return -(x - x * x * x / 3 - y0 * y0 * x) / 2; }),
                kTolerance);
    const auto strip = [&](double x) {
      const double y1 = circle(x);
      return (2 * x * x - 1) * (y1 - y0) + 2 * (y1 * y1 * y1 - y0 * y0 * y0) / 3;
    };
    EXPECT_NEAR(at(masks.M_20, 1, column), simpson(strip, a, b), kTolerance);
  }
}

TEST(ZernikeMasks, FourSidesMirrorOneAnother) {
  const ZernikeMasks& masks = zernikeMasks(kSize);
  for (int i = 2; i < kSize; ++i) {
    const int j = kSize + 1 - i;
    for (const ZernikeMask* even : {&masks.M_00, &masks.M_20}) {
      EXPECT_NEAR(at(*even, kSize, i), at(*even, 1, i), kTolerance);
      EXPECT_NEAR(at(*even, i, 1), at(*even, 1, i), kTolerance);
      EXPECT_NEAR(at(*even, i, kSize), at(*even, 1, i), kTolerance);
    }
    EXPECT_NEAR(at(masks.M_x, kSize, i), at(masks.M_x, 1, i), kTolerance);
    EXPECT_NEAR(at(masks.M_y, kSize, i), -at(masks.M_y, 1, i), kTolerance);
    EXPECT_NEAR(at(masks.M_x, i, kSize), -at(masks.M_y, 1, i), kTolerance);
    EXPECT_NEAR(at(masks.M_x, i, 1), at(masks.M_y, 1, i), kTolerance);
    EXPECT_NEAR(at(masks.M_y, i, 1), -at(masks.M_x, 1, j), kTolerance);
  }
}

TEST(ZernikeMasks, GrowWithColumnsAndRows) {
  EXPECT_GT(at(zernikeMasks(kSize).M_x, 4, 6), 0);
  EXPECT_GT(at(zernikeMasks(kSize).M_y, 6, 4), 0);
}

TEST(ZernikeMasks, KeptUntilAnotherSizeComes) {
  const ZernikeMasks& masks = zernikeMasks(kSize);
  const double* kept = masks.M_20.data();
  EXPECT_EQ(zernikeMasks(kSize).M_20.data(), kept);
  EXPECT_EQ(zernikeMasks(5).size, 5);
  EXPECT_EQ(zernikeMasks(5).M_00.size(), 25U);
  EXPECT_NEAR(zernikeMasks(5).M_00[12], 0.16, kTolerance);
  EXPECT_EQ(zernikeMasks(kSize).size, kSize);
  EXPECT_NEAR(at(zernikeMasks(kSize).M_00, 4, 4), 4.0 / 49, kTolerance);
}

TEST(ZernikeMasks, AreBuiltInAMoment) {
  zernikeMasks(5);
  const auto start = std::chrono::steady_clock::now();
  zernikeMasks(kSize);
  const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
  RecordProperty("milliseconds", std::to_string(taken.count()));
  // Some 10 ms; the wide limit is for sanitizers on a loaded machine.
  EXPECT_LT(taken.count(), 2000);
}

}  // namespace
