#include "calibrations/geometry/DistortionFold.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace calibrations {
namespace {

/// Pixel centres stand at whole numbers, so the image reaches half a pixel further.
double cornerRadius(const polarline::Camera& camera) {
  const double x = std::max(camera.cx + 0.5, camera.size.width - 0.5 - camera.cx) / camera.fx;
  const double y = std::max(camera.cy + 0.5, camera.size.height - 0.5 - camera.cy) / camera.fy;
  return std::hypot(x, y);
}

double imagedByBrown(const polarline::Camera& camera, double radius) {
  const auto& k = camera.k;
  const double s = radius * radius;
  return radius * (1.0 + s * (k[0] + s * (k[1] + s * k[2]))) / (1.0 + s * (k[3] + s * (k[4] + s * k[5])));
}

double imagedByFisheye(const polarline::Camera& camera, double angle) {
  const auto& k = camera.k;
  const double s = angle * angle;
  return angle * (1.0 + s * (k[0] + s * (k[1] + s * (k[2] + s * k[3]))));
}

}  // namespace

std::optional<Fold> foldInside(const polarline::Camera& camera, bool is_fisheye) {
  if (camera.size.width == 0) return std::nullopt;
  const auto imaged = is_fisheye ? imagedByFisheye : imagedByBrown;
  const double corner = cornerRadius(camera);
  // A barrel images far points near, so the search goes on far beyond the corner.
  const double last = is_fisheye ? std::numbers::pi : 20.0 * corner;
  constexpr int kSteps = 40000;
  double before = 0.0;
  for (int step = 1; step <= kSteps && before < corner; ++step) {
    const double here = imaged(camera, last * step / kSteps);
    if (!(here > before)) return Fold{last * (step - 1) / kSteps, before, corner};
    before = here;
  }
  return std::nullopt;
}

}  // namespace calibrations
