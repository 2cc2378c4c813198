#include <Eigen/Dense>
#include <algorithm>
#include <cstddef>
#include <utility>

#include "MorvenKit/Ellipse.h"
#include "MorvenKit/MeanStd.h"
#include "MorvenKit/src/ellipse/ConicParams.h"
#include "MorvenKit/src/ellipse/TrimOutliers.h"

namespace kestrune::morvenkit {

namespace {

// A conic has five coefficients.
constexpr std::size_t kFewestPoints = 5;

/// The equations of a conic through each point: the coefficients' factors, and what their sum shall be. In double,
/// though the scale is of single precision.
struct ConicEquations {
  Eigen::Matrix<double, Eigen::Dynamic, 5> design;
  Eigen::VectorXd right;

  ConicEquations(const std::vector<cv::Point2f>& points, const MeanStd& scale)
      : design(static_cast<Eigen::Index>(points.size()), 5), right(static_cast<Eigen::Index>(points.size())) {
    const double mx = scale.mx, my = scale.my, sx = scale.sx, sy = scale.sy;
    for (Eigen::Index i = 0; i < design.rows(); ++i) {
      const cv::Point2f& point = points[static_cast<std::size_t>(i)];
      const double u = (point.x - mx) / sx, v = (point.y - my) / sy;
      design.row(i) << u * v, v * v, u, v, 1.0;
      right(i) = -(u * u);
    }
  }

  /// Least squares over the first `count` points by normal equations.
  ConicCoefficients solve(std::size_t count) const {
    const auto first = design.topRows(static_cast<Eigen::Index>(count));
    const Eigen::Matrix<double, 5, 5> normal = first.transpose() * first;
    const Eigen::Matrix<double, 5, 1> moment = first.transpose() * right.head(first.rows());
    ConicCoefficients conic{};
    Eigen::Map<Eigen::Matrix<double, 5, 1>>(conic.data()) = normal.ldlt().solve(moment);
    return conic;
  }
};

}  // namespace

Ellipse<double> fitEllipseRobust(std::vector<cv::Point2f> points) {
  Ellipse<double> ellipse;
  ellipse.edge_points = std::move(points);
  const std::vector<cv::Point2f>& all = ellipse.edge_points;
  if (all.size() < kFewestPoints) return ellipse;
  const MeanStd scale = calcMeanStd(all);
  const ConicEquations equations(all, scale);
  std::vector<cv::Point2f> working = all;
  std::size_t count = 0;
  // Meant: only the number of kept points reaches the next pass. It scales by the figures of all points and fits the
  // first ones of the whole list, not those that were kept; the figures depend on it.
  do {
    count = working.size();
    getParamsFromConic(equations.solve(count), scale, ellipse);
    ellipse.sigma = trimOutliers(ellipse, working);
  } while (!(ellipse.sigma < 0.0) && working.size() != count && working.size() >= kFewestPoints);
  return ellipse;
}

}  // namespace kestrune::morvenkit
