#include "MorvenKit/src/ellipse/ConicEquations.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

namespace {

using kestrune::morvenkit::calcMeanStd;
using kestrune::morvenkit::ConicEquations;
using kestrune::morvenkit::conicEquations;
using kestrune::morvenkit::conicEquationsByProducts;
using kestrune::morvenkit::MeanStd;

/// Points of a noisy ellipse somewhere in a picture.
std::vector<cv::Point2f> edge(int count) {
  cv::RNG random(static_cast<std::uint64_t>(count));
  std::vector<cv::Point2f> points;
  for (int i = 0; i < count; ++i) {
    const double t = 2.0 * CV_PI * i / count;
    points.emplace_back(static_cast<float>(812.3 + 14.0 * std::cos(t) + random.gaussian(0.1)),
                        static_cast<float>(407.9 + 9.0 * std::sin(t) + random.gaussian(0.1)));
  }
  return points;
}

}  // namespace

TEST(ConicEquations, AreTheSumsOverThePoints) {
  // Offsets of (-1, 0), (2, 1) and (0, -1) from the mean (10, 20) in deviations of 2 and 4.
  const std::vector<cv::Point2f> points = {{8, 20}, {14, 24}, {10, 16}, {0, 0}};
  const ConicEquations equations = conicEquations(points, 3, MeanStd{10, 20, 2, 4});
  // By column: u v, v^2, u, v, 1; and the right side -u^2 is -1, -4, 0.
  const std::vector<std::vector<double>> terms = {{0, 0, -1, 0, 1}, {2, 1, 2, 1, 1}, {0, 1, 0, -1, 1}};
  const std::vector<double> right = {-1, -4, 0};
  for (int i = 0; i < 5; ++i) {
    double moment = 0.0;
    for (std::size_t k = 0; k < 3; ++k) moment += terms[k][static_cast<std::size_t>(i)] * right[k];
    EXPECT_EQ(equations.moment(i), moment) << i;
    for (int j = 0; j <= i; ++j) {
      double sum = 0.0;
      for (const std::vector<double>& t : terms) sum += t[static_cast<std::size_t>(i)] * t[static_cast<std::size_t>(j)];
      EXPECT_EQ(equations.normal(i, j), sum) << i << ' ' << j;
    }
  }
}

TEST(ConicEquations, AreThoseOfTheProductsToTheLastBit) {
  for (int count = 5; count <= 520; count += count < 40 ? 1 : 13) {
    const std::vector<cv::Point2f> points = edge(count + 7);
    const MeanStd scale = calcMeanStd(points);
    const ConicEquations sums = conicEquations(points, static_cast<std::size_t>(count), scale);
    const ConicEquations products = conicEquationsByProducts(points, static_cast<std::size_t>(count), scale);
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(sums.moment(i), products.moment(i)) << count << ' ' << i;
      for (int j = 0; j <= i; ++j) EXPECT_EQ(sums.normal(i, j), products.normal(i, j)) << count << ' ' << i << ' ' << j;
    }
  }
}
