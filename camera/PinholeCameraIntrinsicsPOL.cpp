#include "camera/PinholeCameraIntrinsicsPOL.h"

#include <cstddef>

#include "camera/FixedPointInverse.h"
#include "camera/PolyCorrection.h"

namespace {

constexpr double kNoBias = 0.0;
/// In cells. Moves a point on a border, between whose cells the inverse could flip for ever, into the higher cell.
constexpr double kBorderBias = 0.01;

std::vector<float> firstCells(const PolyTable& table, std::size_t cells) {
  return {table.begin(), table.begin() + static_cast<std::ptrdiff_t>(cells * kCoefficientsPerCell)};
}

}  // namespace

PinholeCameraIntrinsicsPOL::PinholeCameraIntrinsicsPOL(std::uint16_t width, std::uint16_t height, double fx, double fy,
                                                       double cx, double cy, double scale, const PolyTables& tables)
    : PinholeCameraIntrinsics(width, height, fx, fy, cx, cy, scale) {
  if (const std::size_t cells = usableCells(tables.cells_x, tables.cells_y); cells > 0) {
    cells_x_ = tables.cells_x;
    cells_y_ = tables.cells_y;
    table_x_ = firstCells(tables.x, cells);
    table_y_ = firstCells(tables.y, cells);
  }
  image_ = Image(width, height, fx, fy, cx, cy, cells_x_, cells_y_);
}

bool PinholeCameraIntrinsicsPOL::LoadCalib(StereoCalibParams calib, int camera_index) {
  const CameraCalib* const camera = cameraOf(calib, camera_index);
  if (camera == nullptr) return false;
  const auto& [fx, fy, cx, cy, k1, k2, k3, k4, k5, k6, p1, p2] = camera->intrinsics;
  const PolyTables tables{camera->poly_nx, camera->poly_ny, camera->poly_x, camera->poly_y};
  *this =
      PinholeCameraIntrinsicsPOL(toImageSide(camera->width), toImageSide(camera->height), fx, fy, cx, cy, 1.0, tables);
  return true;
}

cv::Point2d PinholeCameraIntrinsicsPOL::correction(const cv::Point2d& normalised, double cell_bias) const {
  if (!hasTables()) return {};
  return polyCorrection(image_, table_x_, table_y_, normalised, cell_bias);
}

bool PinholeCameraIntrinsicsPOL::AddDistortion(const cv::Point2d& normalised_ideal, cv::Point2d& normalised_raw) const {
  normalised_raw = normalised_ideal + correction(normalised_ideal, kNoBias);
  return true;
}

void PinholeCameraIntrinsicsPOL::AddDistortionToAll(const PointColumns& normalised) const {
  if (hasTables()) addPolyCorrections(image_, table_x_, table_y_, normalised);
}

bool PinholeCameraIntrinsicsPOL::RemoveDistortion(const cv::Point2d& normalised_raw,
                                                  cv::Point2d& normalised_ideal) const {
  // NaN asks for more steps until they run out, so that it fails.
  const auto needsStep = [](double error) { return !(error <= kInverseTolerance); };
  const auto invert = [&](double cell_bias) {
    const auto distortionAt = [&](const cv::Point2d& ideal) { return correction(ideal, cell_bias); };
    return invertByFixedPoint(normalised_raw, distortionAt, needsStep);
  };
  InverseResult found = invert(kNoBias);
  if (!found.converged) found = invert(kBorderBias);
  normalised_ideal = found.converged ? found.point : found.distortion;
  return found.converged;
}
