#include "MorvenKit/src/ellipse/ConicEquations.h"

#include <Eigen/Dense>
#include <array>
#include <opencv2/core/hal/intrin.hpp>

namespace kestrune::morvenkit {

namespace {

// Of fewer points a product adds coefficient by coefficient, of more it may work in blocks of the processor's cache.
constexpr std::size_t kFewestInOrder = 10;
constexpr std::size_t kMostInOrder = 480;

/// What a point adds with: the factors of the coefficients, but for the constant one, and what the sum shall be.
struct Terms {
  std::array<double, 4> factors;
  double right;
};

Terms termsOf(const cv::Point2f& point, const MeanStd& scale) {
  const double mx = scale.mx, my = scale.my, sx = scale.sx, sy = scale.sy;
  const double u = (point.x - mx) / sx, v = (point.y - my) / sy;
  return {{u * v, v * v, u, v}, -(u * u)};
}

using Two = cv::v_float64x2;

/// Both values of a pair made the first or the second one.
Two firstTwice(const Two& pair) { return cv::v_combine_low(pair, pair); }
Two secondTwice(const Two& pair) { return cv::v_combine_high(pair, pair); }

std::array<double, 2> valuesOf(const Two& pair) {
  std::array<double, 2> values{};
  cv::v_store(values.data(), pair);
  return values;
}

/// The right side of the equations: sums of each factor times what its point shall give.
struct Moment {
  Two squares = cv::v_setzero_f64();  ///< Of u v and v^2.
  Two linear = cv::v_setzero_f64();   ///< Of u and v.
  Two plain = cv::v_setzero_f64();    ///< Twice the same.

  void add(const Moment& part) {
    squares = squares + part.squares;
    linear = linear + part.linear;
    plain = plain + part.plain;
  }
};

/// Adds up points one after the other, two sums at once. Each sum has its own order and roundings.
class Sums {
 public:
  explicit Sums(const MeanStd& scale) : mean_(scale.mx, scale.my), deviation_(scale.sx, scale.sy) {}

  void add(const cv::Point2f& point, Moment& moment) {
    const Two linear = (Two(point.x, point.y) - mean_) / deviation_;
    const Two u = firstTwice(linear), v = secondTwice(linear);
    const Two squares = linear * v;
    const Two across = firstTwice(squares), v_squared = secondTwice(squares);
    const Two v_squared_u = cv::v_combine_low(v_squared, u);
    squares_by_across_ = squares_by_across_ + squares * across;
    linear_by_across_ = linear_by_across_ + linear * across;
    linear_by_v_squared_ = linear_by_v_squared_ + linear * v_squared;
    v_squared_u_by_itself_ = v_squared_u_by_itself_ + v_squared_u * v_squared_u;
    squares_ = squares_ + squares;
    linear_ = linear_ + linear;
    const Two right = cv::v_setzero_f64() - u * u;
    moment.add({squares * right, linear * right, right});
  }

  /// Column by column of the lower triangle.
  ConicEquations equations(std::size_t count, const Moment& moment) const {
    const auto [v_squared_v_squared, u_u] = valuesOf(v_squared_u_by_itself_);
    const auto [across_across, v_squared_across] = valuesOf(squares_by_across_);
    const auto [u_across, v_across] = valuesOf(linear_by_across_);
    const auto [u_v_squared, v_v_squared] = valuesOf(linear_by_v_squared_);
    const auto [across, v_squared] = valuesOf(squares_);  // Also those of u times v and of v times v.
    const auto [u, v] = valuesOf(linear_);
    ConicEquations result;
    result.normal.col(0) << across_across, v_squared_across, u_across, v_across, across;
    result.normal.col(1).tail<4>() << v_squared_v_squared, u_v_squared, v_v_squared, v_squared;
    result.normal.col(2).tail<3>() << u_u, across, u;
    result.normal.col(3).tail<2>() << v_squared, v;
    result.normal(4, 4) = static_cast<double>(count);
    const auto [squares, linear, plain] = moment;
    result.moment << valuesOf(squares)[0], valuesOf(squares)[1], valuesOf(linear)[0], valuesOf(linear)[1],
        valuesOf(plain)[0];
    return result;
  }

 private:
  Two mean_, deviation_;
  Two squares_by_across_ = cv::v_setzero_f64(), linear_by_across_ = cv::v_setzero_f64(),
      linear_by_v_squared_ = cv::v_setzero_f64(), v_squared_u_by_itself_ = cv::v_setzero_f64(),
      squares_ = cv::v_setzero_f64(), linear_ = cv::v_setzero_f64();
};

}  // namespace

ConicEquations conicEquations(const std::vector<cv::Point2f>& points, std::size_t count, const MeanStd& scale) {
  if (count < kFewestInOrder || count > kMostInOrder) return conicEquationsByProducts(points, count, scale);
  Sums sums(scale);
  // The moment goes by four: every fourth point to one sum, these to two sums, then to one; what is over comes between.
  std::array<Moment, 4> moments{};
  std::size_t k = 0;
  for (; k + 3 < count; k += 4) {
    for (std::size_t i = 0; i < 4; ++i) sums.add(points[k + i], moments[i]);
  }
  for (std::size_t i : {0U, 1U}) moments[i].add(moments[i + 2]);
  if (k + 1 < count) {
    for (std::size_t i : {0U, 1U}) sums.add(points[k + i], moments[i]);
    k += 2;
  }
  moments[0].add(moments[1]);
  if (k < count) sums.add(points[k], moments[0]);
  return sums.equations(count, moments[0]);
}

ConicEquations conicEquationsByProducts(const std::vector<cv::Point2f>& points, std::size_t count,
                                        const MeanStd& scale) {
  const auto rows = static_cast<Eigen::Index>(count);
  Eigen::Matrix<double, Eigen::Dynamic, 5> design(rows, 5);
  Eigen::VectorXd right(rows);
  for (Eigen::Index i = 0; i < rows; ++i) {
    const auto& [factors, wanted] = termsOf(points[static_cast<std::size_t>(i)], scale);
    design.row(i) << factors[0], factors[1], factors[2], factors[3], 1.0;
    right(i) = wanted;
  }
  return {design.transpose() * design, design.transpose() * right};
}

}  // namespace kestrune::morvenkit
