#include "camera/PinholeCameraIntrinsics.h"

#include <algorithm>
#include <limits>

namespace {

std::array<double, 9> cameraMatrix(double fx, double fy, double cx, double cy) {
  return {fx, 0.0, cx, 0.0, fy, cy, 0.0, 0.0, 1.0};
}

}  // namespace

std::uint16_t toImageSide(double side) {
  if (!(side > 0.0)) return 0;
  return static_cast<std::uint16_t>(std::min<double>(side, std::numeric_limits<std::uint16_t>::max()));
}

PinholeCameraIntrinsics::PinholeCameraIntrinsics(std::uint16_t width, std::uint16_t height, double fx, double fy,
                                                 double cx, double cy, double scale)
    : width_(width), height_(height), K_(cameraMatrix(fx, fy, cx, cy)), scale_(scale) {}

bool PinholeCameraIntrinsics::SetParams(const std::vector<double>& params) {
  constexpr std::size_t kWidthHeightAndFourOfTheMatrix = 6;
  if (params.size() != kWidthHeightAndFourOfTheMatrix) return false;
  width_ = toImageSide(params[0]);
  height_ = toImageSide(params[1]);
  K_ = cameraMatrix(params[2], params[3], params[4], params[5]);
  scale_ = 1.0;
  return true;
}

// A principal point of zero fails too: a camera that was never set has it.
bool PinholeCameraIntrinsics::canConvert() const { return fx() > 0.0 && cx() > 0.0 && fy() > 0.0 && cy() > 0.0; }

bool PinholeCameraIntrinsics::NormalizedToPixel(const cv::Point2d& normalised, cv::Point2d& pixel) const {
  if (!canConvert()) return false;
  pixel = {fx() * normalised.x + cx(), fy() * normalised.y + cy()};
  return true;
}

bool PinholeCameraIntrinsics::NormalizedToPixelScaled(const cv::Point2d& normalised, cv::Point2d& pixel) const {
  if (!canConvert()) return false;
  pixel = {fx() * normalised.x * scale_ + cx(), fy() * normalised.y * scale_ + cy()};
  return true;
}

bool PinholeCameraIntrinsics::PixelToNormalized(const cv::Point2d& pixel, cv::Point2d& normalised) const {
  if (!canConvert()) return false;
  normalised = {(pixel.x - cx()) / fx(), (pixel.y - cy()) / fy()};
  return true;
}

bool PinholeCameraIntrinsics::PixelToNormalizedScaled(const cv::Point2d& pixel, cv::Point2d& normalised) const {
  if (!canConvert()) return false;
  normalised = {(pixel.x - cx()) / (fx() * scale_), (pixel.y - cy()) / (fy() * scale_)};
  return true;
}

bool PinholeCameraIntrinsics::DistortPixel(const cv::Point2d& pixel_ideal, cv::Point2d& pixel_raw) const {
  cv::Point2d ideal;
  cv::Point2d raw;
  return PixelToNormalizedScaled(pixel_ideal, ideal) && AddDistortion(ideal, raw) && NormalizedToPixel(raw, pixel_raw);
}

bool PinholeCameraIntrinsics::UndistortPixel(const cv::Point2d& pixel_raw, cv::Point2d& pixel_ideal) const {
  cv::Point2d raw;
  cv::Point2d ideal;
  return PixelToNormalized(pixel_raw, raw) && RemoveDistortion(raw, ideal) &&
         NormalizedToPixelScaled(ideal, pixel_ideal);
}

bool PinholeCameraIntrinsics::BackProject(const cv::Point2d& pixel, double depth, cv::Vec3d& point) const {
  cv::Point2d raw;
  cv::Point2d ideal;
  if (!PixelToNormalizedScaled(pixel, raw) || !RemoveDistortion(raw, ideal)) return false;
  point = {depth * ideal.x, depth * ideal.y, depth};
  return true;
}

bool PinholeCameraIntrinsics::Project(const cv::Vec3d& point, cv::Point2d& pixel) const {
  if (!(point[2] > 0.0)) return false;
  cv::Point2d raw;
  return AddDistortion({point[0] / point[2], point[1] / point[2]}, raw) && NormalizedToPixel(raw, pixel);
}
