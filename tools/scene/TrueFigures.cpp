#include "tools/scene/TrueFigures.h"

#include <algorithm>
#include <cmath>

#include "tools/scene/BoardMarks.h"

namespace scene {
namespace {

/// Order of the six lines between four points.
constexpr std::array<std::array<std::size_t, 2>, 6> kLines{{{0, 1}, {0, 2}, {1, 3}, {2, 3}, {0, 3}, {1, 2}}};

/// The dot where the rectified pair shows it, in the rectified left frame.
Point3 triangulated(const StereoRig& given, const DotTruth& dot) {
  const double z = norm(given.right_from_left_translation) / (dot.rectified_left.x - dot.rectified_right.x);
  return {dot.rectified_left.x * z, dot.rectified_left.y * z, z};
}

bool counts(const DotTruth& dot) { return dot.drawn && dot.in_view && std::isfinite(dot.row_difference); }

std::array<double, 6> lineErrors(const Scene& scene, const PairTruth& truth) {
  std::array<Point3, 4> measured, known;
  const std::array<int, 4> ids = innerCornerIds(scene.board);
  for (std::size_t k = 0; k < ids.size(); ++k) {
    const int id = ids.at(k);
    measured.at(k) = triangulated(scene.given, truth.dots.at(static_cast<std::size_t>(id)));
    known.at(k) = gridPoint(scene.board, id % scene.board.cols, id / scene.board.cols);
  }
  std::array<double, 6> errors{};
  for (std::size_t k = 0; k < errors.size(); ++k) {
    const auto [a, b] = kLines.at(k);
    errors.at(k) = norm(measured.at(a) - measured.at(b)) - norm(known.at(a) - known.at(b));
  }
  return errors;
}

}  // namespace

TrueFigures trueFigures(const Scene& scene, const PairTruth& truth) {
  TrueFigures figures;
  for (const DotTruth& dot : truth.dots) {
    if (!counts(dot)) continue;
    const double dy = std::abs(dot.row_difference);
    figures.dy_min = figures.points == 0 ? dy : std::min(figures.dy_min, dy);
    figures.dy_max = std::max(figures.dy_max, dy);
    figures.dy_means += dy;
    figures.zero_dis += norm(triangulated(scene.given, dot));
    ++figures.points;
  }
  if (figures.points == 0) return figures;
  figures.dy_means /= static_cast<double>(figures.points);
  figures.zero_dis /= static_cast<double>(figures.points);
  figures.pol_dis = lineErrors(scene, truth);
  return figures;
}

}  // namespace scene
