#include "MorvenKit/src/ellipse/EllipseShape.h"

#include <algorithm>
#include <limits>

namespace kestrune::morvenkit {

float ellipseCircularity(const Ellipse<double>& ellipse) {
  constexpr auto kPi = static_cast<float>(CV_PI);
  const auto a = static_cast<float>(ellipse.semi_a), b = static_cast<float>(ellipse.semi_b);
  const float perimeter = 4.0F * (a - b) + 2.0F * kPi * b;
  if (perimeter < std::numeric_limits<float>::epsilon()) return 1.0F;
  return a * b * kPi * 4.0F * kPi / (perimeter * perimeter);
}

bool liesWithin(const Ellipse<double>& ellipse, const cv::Size& size) {
  return ellipse.x + ellipse.semi_a <= size.width && ellipse.y + ellipse.semi_b <= size.height &&
         ellipse.x - ellipse.semi_a >= 0.0 && ellipse.y - ellipse.semi_b >= 0.0;
}

std::optional<int> wholeAxisRatio(const Ellipse<double>& ellipse) {
  const auto isWhole = [](double axis) { return axis >= 1.0 && axis <= std::numeric_limits<int>::max(); };
  if (!isWhole(ellipse.semi_a) || !isWhole(ellipse.semi_b)) return std::nullopt;
  const auto [shorter, longer] = std::minmax({static_cast<int>(ellipse.semi_a), static_cast<int>(ellipse.semi_b)});
  return longer / shorter;
}

}  // namespace kestrune::morvenkit
