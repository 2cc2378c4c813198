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

}  // namespace

CentreNoise centreNoise(const cv::Mat& picture, const std::string& target_path, SeededRandom& random) {
  kestrune::RingTarget target;
  const cv::Mat grey = normaliseTo8Bit(picture);
  if (grey.empty() || grey.type() != CV_8UC1 || !target.loadConfig(target_path)) return {};
  const PictureNoise noise = estimateNoise(grey);
  const auto first = centresOf(target, withMoreNoise(grey, noise, random));
  const auto second = centresOf(target, withMoreNoise(grey, noise, random));
  CentreNoise shifts;
  for (const auto& [id, centre] : first) {
    const auto other = second.find(id);
    if (other == second.end()) continue;
    shifts.emplace(id, NoisyCentre{(centre + other->second) * 0.5, (centre - other->second) * (1.0 / std::sqrt(2.0))});
  }
  return shifts;
}
