#include "MorvenKit/src/ellipse/ConicEquations.h"

#include <Eigen/Dense>
#include <array>

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

using Moment = std::array<double, 5>;

void addUp(const Moment& part, Moment& sum) {
  for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += part[i];
}

/// Adds up points one after the other.
class Sums {
 public:
  void add(const Terms& point, Moment& moment) {
    const auto& [factors, right] = point;
    std::size_t at = 0;
    for (std::size_t i = 0; i < factors.size(); ++i) {
      for (std::size_t j = 0; j <= i; ++j) products_[at++] += factors[i] * factors[j];
      plain_[i] += factors[i];
      moment[i] += factors[i] * right;
    }
    moment[4] += right;
  }

  ConicEquations equations(std::size_t count, const Moment& moment) const {
    ConicEquations result;
    std::size_t at = 0;
    for (Eigen::Index i = 0; i < 4; ++i) {
      for (Eigen::Index j = 0; j <= i; ++j) result.normal(i, j) = products_[at++];
      result.normal(4, i) = plain_[static_cast<std::size_t>(i)];
    }
    result.normal(4, 4) = static_cast<double>(count);
    for (Eigen::Index i = 0; i < 5; ++i) result.moment(i) = moment[static_cast<std::size_t>(i)];
    return result;
  }

 private:
  std::array<double, 10> products_{};  ///< Of each two factors: the lower triangle, row by row.
  std::array<double, 4> plain_{};
};

}  // namespace

ConicEquations conicEquations(const std::vector<cv::Point2f>& points, std::size_t count, const MeanStd& scale) {
  if (count < kFewestInOrder || count > kMostInOrder) return conicEquationsByProducts(points, count, scale);
  Sums sums;
  // The moment goes by four: every fourth point to one sum, these to two sums, then to one; what is over comes between.
  std::array<Moment, 4> moments{};
  std::size_t k = 0;
  for (; k + 3 < count; k += 4) {
    for (std::size_t i = 0; i < 4; ++i) sums.add(termsOf(points[k + i], scale), moments[i]);
  }
  for (std::size_t i : {0U, 1U}) addUp(moments[i + 2], moments[i]);
  if (k + 1 < count) {
    for (std::size_t i : {0U, 1U}) sums.add(termsOf(points[k + i], scale), moments[i]);
    k += 2;
  }
  addUp(moments[1], moments[0]);
  if (k < count) sums.add(termsOf(points[k], scale), moments[0]);
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
