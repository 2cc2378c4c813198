#include "tools/scene/Irradiance.h"

#include <algorithm>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

#include "tools/scene/BoardSurface.h"
#include "tools/scene/RayRows.h"

namespace scene {
namespace {

/// Rays to points of the board's plane. Not a number where a ray does not meet the plane in front of the camera.
std::vector<Point2> meetBoard(const std::vector<Point2>& rays, const Matrix3& board_from_ray) {
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  std::vector<Point2> points;
  points.reserve(rays.size());
  for (const Point2 ray : rays) {
    const Point3 p = board_from_ray * Point3{ray.x, ray.y, 1.0};
    points.push_back(p.z > 0.0 ? Point2{p.x / p.z, p.y / p.z} : Point2{kNan, kNan});
  }
  return points;
}

/// The board's plane as seen around one pixel, to second order in the pixel offset.
struct Patch {
  Point2 centre;
  Point2 by_u, by_v;
  Point2 by_uu, by_uv, by_vv;

  [[nodiscard]] Point2 at(double du, double dv) const {
    return centre + du * by_u + dv * by_v + (0.5 * du * du) * by_uu + (du * dv) * by_uv + (0.5 * dv * dv) * by_vv;
  }
  [[nodiscard]] double reach() const { return 0.55 * (norm(by_u) + norm(by_v)); }
};

/// Three rows of board points around the row in work.
struct Window {
  std::vector<Point2> above, here, below;

  [[nodiscard]] Patch around(std::size_t i) const {
    const Point2 corner_sum = above[i - 1] + below[i + 1] - above[i + 1] - below[i - 1];
    return {here[i],
            0.5 * (here[i + 1] - here[i - 1]),
            0.5 * (below[i] - above[i]),
            here[i + 1] + here[i - 1] - 2.0 * here[i],
            0.25 * corner_sum,
            below[i] + above[i] - 2.0 * here[i]};
  }
};

/// Where a pixel is sampled: per_side^2 places, spread by the golden ratio, so that an edge of any direction passes
/// them one by one (a square grid lets a straight edge pass a whole row at once), and in opposite pairs, so that their
/// mean is the pixel's centre.
std::vector<Point2> samplePlaces(int per_side) {
  const int count = per_side * per_side;
  std::vector<Point2> places;
  if (count % 2 != 0) places.push_back({0.0, 0.0});
  for (int k = 0; k < count / 2; ++k) {
    const double turns = (k + 0.5) * std::numbers::phi;
    const Point2 place{(k + 0.5) / count - 0.5, turns - std::floor(turns) - 0.5};
    places.push_back(place);
    places.push_back(-1.0 * place);
  }
  return places;
}

double meanGrey(const BoardSurface& surface, const Patch& patch, double step, const std::vector<Point2>& places) {
  // A pixel wider than half a step needs the marks near each of its samples, not near its centre.
  const bool close = patch.reach() < 0.5 * step;
  const BoardSurface::Inks& inks = surface.inksNear(patch.centre);
  double sum = 0.0;
  for (const Point2 place : places) {
    const Point2 point = patch.at(place.x, place.y);
    sum += close ? surface.greyAmong(inks, point) : surface.greyAt(point);
  }
  return sum / static_cast<double>(places.size());
}

/// What stays the same over the image.
struct Painter {
  BoardSurface surface;
  double step;
  double surround;
  std::vector<Point2> places;

  [[nodiscard]] double greyOf(const Patch& patch) const {
    const double reach = patch.reach();
    // Not a number at the edge of the lens's field: nothing of the board is there.
    if (std::isnan(reach + patch.centre.x)) return surround;
    if (surface.uniformWithin(patch.centre, reach)) return surface.greyAt(patch.centre);
    return meanGrey(surface, patch, step, places);
  }
};

Matrix3 boardFromRay(const Pose& camera_from_board) {
  return inverse(fromColumns(columnOf(camera_from_board.rotation, 0), columnOf(camera_from_board.rotation, 1),
                             camera_from_board.translation));
}

}  // namespace

cv::Mat renderIrradiance(const Camera& camera, const Board& board, const Pose& camera_from_board,
                         const Optics& optics) {
  const Painter painter{BoardSurface(board, optics), std::min(board.step, rowStep(board)), optics.surround,
                        samplePlaces(optics.supersampling)};
  const Matrix3 board_from_ray = boardFromRay(camera_from_board);
  RayRows rays(camera);
  Window window;
  window.here = meetBoard(rays.next(), board_from_ray);
  window.below = meetBoard(rays.next(), board_from_ray);
  cv::Mat image(camera.height, camera.width, CV_32F);
  for (int v = 0; v < camera.height; ++v) {
    std::swap(window.above, window.here);
    std::swap(window.here, window.below);
    window.below = meetBoard(rays.next(), board_from_ray);
    for (int u = 0; u < camera.width; ++u) {
      const Patch patch = window.around(static_cast<std::size_t>(u) + 1);
      image.at<float>(v, u) = static_cast<float>(painter.greyOf(patch));
    }
  }
  return image;
}

}  // namespace scene
