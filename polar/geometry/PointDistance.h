#pragma once

#include <cmath>
#include <opencv2/core.hpp>
#include <vector>

/// Length of a way: squares and their sum in single precision, the root in double.
inline double lengthBySingles(const cv::Point3f& way) {
  const float square_sum = way.x * way.x + way.y * way.y + way.z * way.z;
  return std::sqrt(static_cast<double>(square_sum));
}

/// Length of a way: squares, sum and root in double.
inline double lengthByDoubles(const cv::Point3f& way) {
  return std::sqrt(std::pow(way.x, 2.0) + std::pow(way.y, 2.0) + std::pow(way.z, 2.0));
}

/// Length between two points of a cloud, by singles. Narrowed, it is the length in single precision throughout.
inline double pointDistance(const cv::Point3f& a, const cv::Point3f& b) { return lengthBySingles(a - b); }

/// The way between two configured positions (x, y, z each), narrowed coordinate by coordinate after the subtraction.
/// Throws `std::out_of_range` for a position of fewer than three numbers.
inline cv::Point3f narrowedDifference(const std::vector<double>& a, const std::vector<double>& b) {
  const auto difference = [&](std::size_t k) { return static_cast<float>(a.at(k) - b.at(k)); };
  return {difference(0), difference(1), difference(2)};
}
