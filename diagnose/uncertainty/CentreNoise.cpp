#include "diagnose/uncertainty/CentreNoise.h"

#include <cmath>

#include "Tallowfen/src/RingTarget.h"
#include "diagnose/uncertainty/PictureNoise.h"
#include "polar/measure/ImageNormalisation.h"

namespace {

std::map<std::int32_t, cv::Vec2d> centresOf(kestrune::RingTarget& target, const cv::Mat& picture) {
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  target.detect(picture, points, unidentified, cv::Mat());
  std::map<std::int32_t, cv::Vec2d> centres;
  for (const auto& point : points) centres.emplace(point.id, cv::Vec2d(point.x, point.y));
  return centres;
}

CentreNoise shiftsBetween(kestrune::RingTarget& target, const cv::Mat& picture, const cv::Mat& again) {
  const auto first = centresOf(target, picture);
  const auto second = centresOf(target, again);
  CentreNoise shifts;
  for (const auto& [id, centre] : first) {
    const auto other = second.find(id);
    if (other == second.end()) continue;
    shifts.emplace(id, NoisyCentre{(centre + other->second) * 0.5, (centre - other->second) * (1.0 / std::sqrt(2.0))});
  }
  return shifts;
}

}  // namespace

SideNoise centreNoise(const cv::Mat& picture, const Warp& warp, const std::string& target_path, SeededRandom& random) {
  kestrune::RingTarget target;
  const cv::Mat grey = normaliseTo8Bit(picture);
  if (grey.empty() || grey.type() != CV_8UC1 || !target.loadConfig(target_path)) return {};
  const PictureNoise noise = estimateNoise(grey);
  const cv::Mat first = withMoreNoise(grey, noise, random);
  const cv::Mat second = withMoreNoise(grey, noise, random);
  SideNoise shifts;
  shifts.raw = shiftsBetween(target, first, second);
  if (warp && !shifts.raw.empty()) shifts.rectified = shiftsBetween(target, warp(first), warp(second));
  return shifts;
}
