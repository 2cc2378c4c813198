#pragma once

#include <Eigen/Core>
#include <cstddef>
#include <opencv2/core.hpp>
#include <vector>

#include "MorvenKit/MeanStd.h"

namespace kestrune::morvenkit {

/// Normal equations of the conic u v, v^2, u, v, 1 that goes nearest to -u^2: `normal` times the coefficients is
/// `moment`. Of `normal` only the lower triangle is filled.
struct ConicEquations {
  Eigen::Matrix<double, 5, 5> normal = Eigen::Matrix<double, 5, 5>::Zero();
  Eigen::Matrix<double, 5, 1> moment = Eigen::Matrix<double, 5, 1>::Zero();
};

/// Of the first `count` points, with u and v their offsets from the mean in standard deviations. In double, though the
/// scale is of single precision.
ConicEquations conicEquations(const std::vector<cv::Point2f>& points, std::size_t count, const MeanStd& scale);

/// The same as two products of matrices. The order in which such a product adds is Eigen's own, and all figures were
/// formed by it: `conicEquations` adds the points of a dot in that order without making matrices, and leaves lists that
/// are shorter or longer to this.
ConicEquations conicEquationsByProducts(const std::vector<cv::Point2f>& points, std::size_t count,
                                        const MeanStd& scale);

}  // namespace kestrune::morvenkit
