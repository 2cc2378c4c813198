#include "report/measure/Course.h"

#include <algorithm>
#include <cmath>

#include "report/measure/Spread.h"

namespace polarline {
namespace {

constexpr std::size_t kStripes = 12;

struct Dots {
  std::vector<double> places, values;
};

Dots finiteOf(const std::vector<double>& places, const std::vector<double>& values) {
  Dots dots;
  for (std::size_t k = 0; k < std::min(places.size(), values.size()); ++k) {
    if (!std::isfinite(places[k]) || !std::isfinite(values[k])) continue;
    dots.places.push_back(places[k]);
    dots.values.push_back(values[k]);
  }
  return dots;
}

bool layLine(const Dots& dots, Course& course) {
  const double middle = spreadOf(dots.places).mean;
  const double mean = spreadOf(dots.values).mean;
  double squares = 0.0;
  double products = 0.0;
  for (std::size_t k = 0; k < dots.places.size(); ++k) {
    squares += (dots.places[k] - middle) * (dots.places[k] - middle);
    products += (dots.places[k] - middle) * (dots.values[k] - mean);
  }
  course.slope = products / squares;
  course.intercept = mean - course.slope * middle;
  return std::isfinite(course.slope) && std::isfinite(course.intercept);
}

}  // namespace

std::optional<Course> courseOf(const std::vector<double>& places, const std::vector<double>& values) {
  const Dots dots = finiteOf(places, values);
  Course course;
  if (dots.places.size() < 2 || !layLine(dots, course)) return std::nullopt;
  const auto [least, most] = std::ranges::minmax(dots.places);
  const double width = (most - least) / static_cast<double>(kStripes);
  if (!std::isfinite(width)) return std::nullopt;
  std::vector<std::vector<double>> stripes(kStripes);
  for (std::size_t k = 0; k < dots.places.size(); ++k) {
    const auto stripe = static_cast<std::size_t>((dots.places[k] - least) / width);
    stripes[std::min(stripe, kStripes - 1)].push_back(dots.values[k]);
  }
  for (std::size_t k = 0; k < kStripes; ++k) {
    if (stripes[k].empty()) continue;
    const Spread spread = spreadOf(stripes[k]);
    course.at.push_back(least + (static_cast<double>(k) + 0.5) * width);
    course.mean.push_back(spread.mean);
    course.sd.push_back(spread.sd);
    course.count.push_back(spread.count);
  }
  return course;
}

}  // namespace polarline
