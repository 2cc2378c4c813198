#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace polarline {

/// How a value goes with a place: stripe by stripe, and the line of least squares through all.
struct Course {
  std::vector<double> at;    ///< Middle of each stripe that has dots.
  std::vector<double> mean;  ///< Of its dots.
  std::vector<double> sd;    ///< Of the sample; not a number for one dot.
  std::vector<std::size_t> count;
  double slope = 0.0;
  double intercept = 0.0;  ///< value = intercept + slope * place
};

/// None without two dots at different places. Dots that lack either number are left out.
std::optional<Course> courseOf(const std::vector<double>& places, const std::vector<double>& values);

}  // namespace polarline
