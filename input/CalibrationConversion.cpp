#include "input/CalibrationConversion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

/// The size without its fraction, clamped to the range of a 32-bit integer; NaN becomes 0.
std::uint32_t wholePixels(double size) {
  if (std::isnan(size)) return 0;
  const double lowest = std::numeric_limits<std::int32_t>::min();
  const double highest = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::clamp(size, lowest, highest)));
}

template <typename Source, typename Target>
void copyLens(const Source& source, Target& target) {
  target.intrinsics = source.intrinsics;
  target.poly_nx = source.poly_nx;
  target.poly_ny = source.poly_ny;
  target.poly_x = source.poly_x;
  target.poly_y = source.poly_y;
}

void exportCamera(const CameraCalib& camera, ExportedCameraCalib& exported) {
  exported.height = camera.height;
  exported.width = camera.width;
  copyLens(camera, exported);
}

void importCamera(const ExportedCameraCalib& exported, CameraCalib& camera) {
  camera.height = wholePixels(exported.height);
  camera.width = wholePixels(exported.width);
  copyLens(exported, camera);
}

}  // namespace

void exportCalibration(const StereoCalibParams& calib, ExportedCalibParams& exported) {
  exportCamera(calib.left, exported.left);
  exportCamera(calib.right, exported.right);
  exported.extrinsics = calib.extrinsics;
}

void importCalibration(const ExportedCalibParams& exported, StereoCalibParams& calib) {
  importCamera(exported.left, calib.left);
  importCamera(exported.right, calib.right);
  calib.extrinsics = exported.extrinsics;
}
