#include "diagnose/causes/RowSlope.h"

double rowSlopeOf(const cv::Matx33d& frame, const cv::Vec2d& ideal) {
  const cv::Vec3d ray = frame * cv::Vec3d(ideal[0], ideal[1], 1.0);
  return ray[1] / ray[2];
}

std::optional<double> rowSlopeOf(const CalibratedCamera& camera, const cv::Matx33d& frame, const cv::Point2d& pixel) {
  const std::optional<cv::Point2d> ideal = camera.idealOf(pixel);
  if (!ideal) return std::nullopt;
  return rowSlopeOf(frame, {ideal->x, ideal->y});
}
