#include "calibrations/geometry/NearestRotation.h"

#include <algorithm>
#include <cmath>

namespace calibrations {

double deviationOf(const cv::Matx33d& matrix) {
  const cv::Matx33d difference = matrix.t() * matrix - cv::Matx33d::eye();
  double largest = 0.0;
  for (const double element : difference.val) largest = std::max(largest, std::abs(element));
  return largest;
}

std::optional<cv::Matx33d> nearestRotation(const cv::Matx33d& matrix) {
  if (deviationOf(matrix) > kMostDeviation || cv::determinant(matrix) < 0.0) return std::nullopt;
  cv::Matx33d u;
  cv::Matx31d w;
  cv::Matx33d vt;
  cv::SVD::compute(matrix, w, u, vt);
  return u * vt;
}

}  // namespace calibrations
