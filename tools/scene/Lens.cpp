#include "tools/scene/Lens.h"

#include "tools/scene/BrownLens.h"
#include "tools/scene/FisheyeLens.h"
#include "tools/scene/PolyLens.h"

namespace scene {
namespace {

constexpr int kMaxSteps = 60;
/// Newton's error after a step is about the square of that step, so a step of this size lands far below 1e-12.
constexpr double kLastStep = 1e-8;
/// Two neighbouring polynomial cells differ by less than this at their border.
constexpr double kBorderStep = 1e-5;

}  // namespace

RawPoint distort(const Camera& camera, Point2 ideal) {
  switch (camera.model) {
    case LensModel::kFisheye:
      return distortFisheye(camera.lens, ideal);
    case LensModel::kPoly:
      return distortPoly(camera, ideal);
    case LensModel::kBrown:
      break;
  }
  return distortBrown(camera.lens, ideal);
}

std::optional<Point2> undistort(const Camera& camera, Point2 raw, Point2 start) {
  Point2 ideal = start;
  double size = 0.0;
  for (int step = 0; step < kMaxSteps; ++step) {
    const RawPoint here = distort(camera, ideal);
    const double det = determinant(here.by_ideal);
    if (!(det > 1e-6)) return std::nullopt;
    const Matrix2& j = here.by_ideal;
    const Point2 miss = raw - here.point;
    const Point2 move{(j.yy * miss.x - j.xy * miss.y) / det, (j.xx * miss.y - j.yx * miss.x) / det};
    ideal = ideal + move;
    size = norm(move);
    if (size < kLastStep) return ideal;
  }
  return size < kBorderStep ? std::optional<Point2>(ideal) : std::nullopt;
}

std::optional<Point2> project(const Camera& camera, const Point3& point_camera) {
  if (!(point_camera.z > 0.0)) return std::nullopt;
  const Point2 ideal{point_camera.x / point_camera.z, point_camera.y / point_camera.z};
  return pixelFromRaw(camera, distort(camera, ideal).point);
}

}  // namespace scene
