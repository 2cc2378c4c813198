#include "MorvenKit/src/edges/NonMaximumSuppression.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kestrune::morvenkit {

namespace {

/// Row and column of a neighbour, from the pixel.
struct Offset {
  int row, column;
};

/// An eighth of the circle and the one opposite: whether a gradient points there, and between which two neighbours. The
/// neighbours on the opposite side have the negative offsets.
struct Direction {
  bool (*holds)(float ix, float iy);
  bool steep;  ///< The straight neighbour is in the pixel's column, not in its row.
  Offset diagonal, straight;
};

constexpr std::array<Direction, 4> kDirections = {{
    {[](float ix, float iy) { return (iy <= 0 && ix > -iy) || (iy >= 0 && ix < -iy); }, false, {1, -1}, {0, -1}},
    {[](float ix, float iy) { return (ix > 0 && -iy >= ix) || (ix < 0 && -iy <= ix); }, true, {1, -1}, {1, 0}},
    {[](float ix, float iy) { return (ix <= 0 && ix > iy) || (ix >= 0 && ix < iy); }, true, {1, 1}, {1, 0}},
    {[](float ix, float iy) { return (iy < 0 && ix <= iy) || (iy > 0 && ix >= iy); }, false, {1, 1}, {0, 1}},
}};

float interpolate(const cv::Mat_<float>& m, const cv::Point& at, const Direction& direction, int side, float t) {
  const float diagonal = m(at.y + side * direction.diagonal.row, at.x + side * direction.diagonal.column);
  const float straight = m(at.y + side * direction.straight.row, at.x + side * direction.straight.column);
  return t * diagonal + (1.0F - t) * straight;
}

bool isRidge(const EdgeGradient& gradient, const cv::Point& at, const Direction& direction) {
  const float ix = gradient.x(at), iy = gradient.y(at);
  if (!direction.holds(ix, iy)) return false;
  const float t = std::abs(direction.steep ? ix / iy : iy / ix);
  const float m = gradient.magnitude(at);
  return m >= interpolate(gradient.magnitude, at, direction, 1, t) &&
         m >= interpolate(gradient.magnitude, at, direction, -1, t);
}

bool isRidge(const EdgeGradient& gradient, const cv::Point& at) {
  return std::any_of(kDirections.begin(), kDirections.end(),
                     [&](const Direction& direction) { return isRidge(gradient, at, direction); });
}

}  // namespace

cv::Mat_<uchar> nonMaximumSuppression(const EdgeGradient& gradient) {
  cv::Mat_<uchar> ridges(gradient.magnitude.size(), uchar{0});
  for (int y = 1; y < ridges.rows - 1; ++y) {
    for (int x = 1; x < ridges.cols - 1; ++x) {
      if (isRidge(gradient, {x, y})) ridges(y, x) = 255;
    }
  }
  return ridges;
}

}  // namespace kestrune::morvenkit
