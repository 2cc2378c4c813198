#include "diagnose/uncertainty/CentreNoise.h"

#include <cmath>

#include "Tallowfen/src/RingTarget.h"
#include "diagnose/uncertainty/PictureNoise.h"
#include "polar/measure/ImageNormalisation.h"

namespace {

using Points = kestrune::RingTarget::Points;
using Centres = std::map<std::int32_t, cv::Vec2d>;

Centres centresOf(const Points& points) {
  Centres centres;
  for (const auto& point : points) centres.emplace(point.id, cv::Vec2d(point.x, point.y));
  return centres;
}

/// One target throughout, as its buffers are as large as the pictures.
class Search {
 public:
  explicit Search(const DetectionMemory& known) : known_(known) {}

  bool begin(const std::string& target) { return target_.loadConfig(target); }

  CentreNoise shiftsBetween(const cv::Mat& picture, const cv::Mat& noisy) {
    const Detection* found = known_.found(target_.config(), picture);
    const Centres centres = centresOf(found != nullptr ? found->points : searched(picture));
    CentreNoise shifts;
    if (centres.empty()) return shifts;
    for (const auto& [id, other] : centresOf(searched(noisy))) {
      const auto centre = centres.find(id);
      if (centre == centres.end()) continue;
      shifts.emplace(id, NoisyCentre{centre->second, (other - centre->second) * (1.0 / std::sqrt(2.0))});
    }
    return shifts;
  }

 private:
  Points searched(const cv::Mat& picture) {
    Points points;
    Points unidentified;
    target_.detect(picture, points, unidentified, cv::Mat());
    return points;
  }

  const DetectionMemory& known_;
  kestrune::RingTarget target_;
};

}  // namespace

SideNoise centreNoise(const cv::Mat& picture, const Warp& warp, const std::string& target, const DetectionMemory& known,
                      SeededRandom& random) {
  Search search(known);
  const cv::Mat grey = normaliseTo8Bit(picture);
  if (grey.empty() || grey.type() != CV_8UC1 || !search.begin(target)) return {};
  const cv::Mat noisy = withMoreNoise(grey, estimateNoise(grey), random);
  SideNoise shifts;
  shifts.raw = search.shiftsBetween(grey, noisy);
  if (warp && !shifts.raw.empty()) shifts.rectified = search.shiftsBetween(warp(grey), warp(noisy));
  return shifts;
}
