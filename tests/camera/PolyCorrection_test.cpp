#include "camera/PolyCorrection.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// x and y from -1 to 1.
Image square(std::uint8_t columns, std::uint8_t rows) { return {1000, 1000, 500, 500, 500, 500, columns, rows}; }

std::vector<float> withCoefficient(std::size_t index, float value, std::size_t cells = 1) {
  std::vector<float> table(cells * 10);
  table[index] = value;
  return table;
}

TEST(PolyCorrection, IsTheNegatedPolynomial) {
  // Powers of two, so that nothing is rounded: x = 0.5, y = 0.25.
  const std::array<double, 10> monomials = {1, 0.5, 0.25, 0.25, 0.125, 0.0625, 0.125, 0.0625, 0.03125, 0.015625};
  for (std::size_t k = 0; k < 10; ++k) {
    const cv::Point2d correction =
        polyCorrection(square(1, 1), withCoefficient(k, 3), withCoefficient(k, -5), {0.5, 0.25}, 0);
    EXPECT_EQ(correction.x, -3 * monomials[k]) << "coefficient " << k;
    EXPECT_EQ(correction.y, 5 * monomials[k]) << "coefficient " << k;
  }
}

struct RoundedMonomial {
  std::string name;
  double x, y;
  std::size_t coefficient;
  float value;  ///< What single-precision steps make of the monomial; a double would keep more.
};

class PolyCorrectionMonomialRounding : public testing::TestWithParam<RoundedMonomial> {};

// The constant takes the rounded monomial off again. Whatever a wider product kept would be left over.
TEST_P(PolyCorrectionMonomialRounding, LeavesNothingOfTheExactProduct) {
  const auto& param = GetParam();
  std::vector<float> table = withCoefficient(param.coefficient, 1);
  table[0] = -param.value;
  const cv::Point2d correction = polyCorrection(square(1, 1), table, table, {param.x, param.y}, 0);
  EXPECT_EQ(correction.x, 0.0);
  EXPECT_EQ(correction.y, 0.0);
}

constexpr double kA = 0x1.001p0;     // 1 + 2^-12: its square 1 + 2^-11 + 2^-24 is a tie that goes down.
constexpr double kB = 0x1.000002p0;  // 1 + 2^-23, the float next to 1.
constexpr double kC = 0x1.0048p0;    // Its square and its cube both lose digits.
constexpr float kCCube = 0x1.00d83cp0F;
constexpr float kASquare = 0x1.002p0F;
constexpr float kACube = 0x1.003002p0F;  // (1 + 2^-11)(1 + 2^-12), exact.
constexpr float kAAB = 0x1.002002p0F;    // kASquare * kB; (a b) a would end one float higher.

INSTANTIATE_TEST_SUITE_P(
    Each, PolyCorrectionMonomialRounding,
    testing::Values(RoundedMonomial{"x", 1 + 0x1p-30, 0, 1, 1.0F}, RoundedMonomial{"y", 0, 1 + 0x1p-30, 2, 1.0F},
                    RoundedMonomial{"x2", kA, 0, 3, kASquare}, RoundedMonomial{"xy", kA, kA, 4, kASquare},
                    RoundedMonomial{"y2", 0, kA, 5, kASquare}, RoundedMonomial{"x3_square", kA, 0, 6, kACube},
                    RoundedMonomial{"x3_cube", kC, 0, 6, kCCube}, RoundedMonomial{"x2y_square", kA, kA, 7, kACube},
                    RoundedMonomial{"x2y_order", kA, kB, 7, kAAB}, RoundedMonomial{"xy2_square", kA, kA, 8, kACube},
                    RoundedMonomial{"xy2_order", kB, kA, 8, kAAB}, RoundedMonomial{"y3_square", 0, kA, 9, kACube},
                    RoundedMonomial{"y3_cube", 0, kC, 9, kCCube}),
    [](const auto& each) { return each.param.name; });

TEST(PolyCorrection, SumsInDoubleInItsOwnOrder) {
  std::vector<float> table(10);
  table[1] = 1;
  table[0] = 0x1p53F;
  table[2] = -0x1p53F;
  // (1 + 2^53) is a tie that goes to 2^53, so the linear x term is lost. Any other order of the three keeps it.
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {1, 1}, 0).x, 0.0);
  table[0] = 0x1p30F;
  table[2] = -0x1p30F;
  // A single-precision sum would lose it here too.
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {1, 1}, 0).x, -1.0);
}

TEST(PolyCorrection, ConstantComesSecondSoThatTheYTermMeetsTheirSum) {
  std::vector<float> table(10);
  table[1] = 0x1p53F;
  table[0] = -0x1p53F;
  table[2] = 1;
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {1, 1}, 0).x, -1.0);
  table[1] = 1;
  table[2] = 0x1p53F;  // 1 - 2^53 is exact, and so is adding 2^53.
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {1, 1}, 0).x, -1.0);
}

TEST(PolyCorrection, NarrowsTheSum) {
  std::vector<float> table(10);
  table[0] = 1;
  table[1] = 0x1p-24F;  // 1 + 2^-24 needs a double; the float next to it is 1.
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {1, 0}, 0).x, -1.0);
}

TEST(PolyCorrection, AgreesWithASeparateEvaluation) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> uniform(-1.2, 1.2);
  for (int n = 0; n < 2000; ++n) {
    std::vector<float> table(10);
    for (float& c : table) c = static_cast<float>(uniform(random));
    const cv::Point2d p(uniform(random), uniform(random));
    const volatile float x = static_cast<float>(p.x);
    const volatile float y = static_cast<float>(p.y);
    volatile float x2 = x * x;
    volatile float y2 = y * y;
    volatile float xy = x * y;
    volatile float x3 = x2 * x;
    volatile float x2y = x2 * y;
    volatile float xy2 = y2 * x;
    volatile float y3 = y2 * y;
    const std::array<double, 10> terms = {x, 1, y, x2, xy, y2, x3, x2y, xy2, y3};
    const std::array<std::size_t, 10> order = {1, 0, 2, 3, 4, 5, 6, 7, 8, 9};
    double sum = 0;
    for (std::size_t k = 0; k < 10; ++k) sum += terms[k] * static_cast<double>(table[order[k]]);
    EXPECT_EQ(polyCorrection(square(1, 1), table, table, p, 0).y, -static_cast<double>(static_cast<float>(sum)));
  }
}

/// Tables whose constant tells the cell.
std::vector<float> numberedCells(std::size_t cells) {
  std::vector<float> table(cells * 10);
  for (std::size_t cell = 0; cell < cells; ++cell) table[cell * 10] = -static_cast<float>(cell);
  return table;
}

struct CellCase {
  double x, y, bias;
  double cell;
};
class PolyCorrectionCellChoice : public testing::TestWithParam<CellCase> {};

TEST_P(PolyCorrectionCellChoice, TakesTheCell) {
  // Four columns of 0.5, two rows of 1.
  const auto& param = GetParam();
  const auto table = numberedCells(8);
  EXPECT_EQ(polyCorrection(square(4, 2), table, table, {param.x, param.y}, param.bias).x, param.cell);
}

INSTANTIATE_TEST_SUITE_P(Inside, PolyCorrectionCellChoice,
                         testing::Values(CellCase{-1, -1, 0, 0}, CellCase{-0.51, -0.01, 0, 0},
                                         CellCase{-0.5, -0.5, 0, 1}, CellCase{0.6, -0.5, 0, 3}, CellCase{-1, 0, 0, 4},
                                         CellCase{0.99, 0.99, 0, 7}));
INSTANTIATE_TEST_SUITE_P(Bias, PolyCorrectionCellChoice,
                         testing::Values(CellCase{-0.504, -0.5, 0.01, 1}, CellCase{-0.506, -0.5, 0.01, 0},
                                         CellCase{-0.9, -0.009, 0.01, 4}, CellCase{-0.9, -0.011, 0.01, 0},
                                         CellCase{-0.5001, -0.0001, 0, 0}));
INSTANTIATE_TEST_SUITE_P(OutsideTakesTheBorderCell, PolyCorrectionCellChoice,
                         testing::Values(CellCase{-1.4, 0, 0, 4}, CellCase{-5, 0.5, 0, 4}, CellCase{1, -0.5, 0, 3},
                                         CellCase{9, -0.5, 0, 3}, CellCase{-0.9, -7, 0, 0}, CellCase{-0.9, 1, 0, 4},
                                         CellCase{-0.9, 7, 0, 4}));
INSTANTIATE_TEST_SUITE_P(BeyondAnyInteger, PolyCorrectionCellChoice,
                         testing::Values(CellCase{1e12, -0.5, 0, 3}, CellCase{-1e12, 0.5, 0, 4},
                                         CellCase{0, 1e12, 0, 6}, CellCase{0, -1e12, 0, 2}));

TEST(PolyCorrection, NanTakesCellZeroAndStaysNan) {
  const auto table = numberedCells(8);
  EXPECT_TRUE(std::isnan(polyCorrection(square(4, 2), table, table, {kNan, kNan}, 0).x));
  EXPECT_TRUE(std::isnan(polyCorrection(square(4, 2), table, table, {kInfinity, -kInfinity}, 0).y));
}

TEST(PolyCorrection, PolynomialGoesOnOutsideOfTheImage) {
  const auto table = withCoefficient(1, 2);
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {-3, 0}, 0).x, 6.0);
  EXPECT_EQ(polyCorrection(square(1, 1), table, table, {3, 0}, 0).x, -6.0);
}

}  // namespace
