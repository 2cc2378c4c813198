#include "MorvenKit/src/EllipseShape.h"

#include <algorithm>
#include <limits>
#include <opencv2/core.hpp>

namespace kestrune::morvenkit {

float ellipseCircularity(const Ellipse<double>& ellipse) {
  constexpr auto kPi = static_cast<float>(CV_PI);
  const auto a = static_cast<float>(ellipse.semi_a), b = static_cast<float>(ellipse.semi_b);
  const float perimeter = 4.0F * (a - b) + 2.0F * kPi * b;
  if (perimeter < std::numeric_limits<float>::epsilon()) return 1.0F;
  return a * b * kPi * 4.0F * kPi / (perimeter * perimeter);
}

std::optional<int> wholeAxisRatio(const Ellipse<double>& ellipse) {
  const auto isWhole = [](double axis) { return axis >= 1.0 && axis <= std::numeric_limits<int>::max(); };
  if (!isWhole(ellipse.semi_a) || !isWhole(ellipse.semi_b)) return std::nullopt;
  const auto [shorter, longer] = std::minmax({static_cast<int>(ellipse.semi_a), static_cast<int>(ellipse.semi_b)});
  return longer / shorter;
}

}  // namespace kestrune::morvenkit
