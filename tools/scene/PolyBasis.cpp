#include "tools/scene/PolyBasis.h"

#include <cstddef>

namespace scene {
namespace {

struct Powers {
  std::size_t x;
  std::size_t y;
};
constexpr std::array<Powers, 10> kOrder{
    {{0, 0}, {1, 0}, {0, 1}, {2, 0}, {1, 1}, {0, 2}, {3, 0}, {2, 1}, {1, 2}, {0, 3}}};

/// A polynomial of one variable, degree three and below.
using Four = std::array<double, 4>;

/// (slope t + shift)^power, multiplied out.
Four linearPower(double slope, double shift, std::size_t power) {
  Four result{1.0, 0.0, 0.0, 0.0};
  for (std::size_t step = 0; step < power; ++step) {
    for (std::size_t k = 3; k > 0; --k) result.at(k) = result.at(k) * shift + result.at(k - 1) * slope;
    result[0] *= shift;
  }
  return result;
}

}  // namespace

Ten localMonomials(const Box& box, Point2 point) {
  const double x = (2.0 * point.x - box.x0 - box.x1) / (box.x1 - box.x0);
  const double y = (2.0 * point.y - box.y0 - box.y1) / (box.y1 - box.y0);
  return {1.0, x, y, x * x, x * y, y * y, x * x * x, x * x * y, x * y * y, y * y * y};
}

Ten globalCoefficients(const Box& box, const Ten& local) {
  const double slope_x = 2.0 / (box.x1 - box.x0);
  const double slope_y = 2.0 / (box.y1 - box.y0);
  Ten global{};
  for (std::size_t term = 0; term < 10; ++term) {
    const Four in_x = linearPower(slope_x, -0.5 * slope_x * (box.x0 + box.x1), kOrder.at(term).x);
    const Four in_y = linearPower(slope_y, -0.5 * slope_y * (box.y0 + box.y1), kOrder.at(term).y);
    for (std::size_t k = 0; k < 10; ++k)
      global.at(k) += local.at(term) * in_x.at(kOrder.at(k).x) * in_y.at(kOrder.at(k).y);
  }
  return global;
}

}  // namespace scene
