#include "polar/measure/DetectionMemory.h"

#include <algorithm>
#include <utility>

#include "platform/Pictures.h"

const DetectionMemory::Known* DetectionMemory::find(const kestrune::RingTargetConfig& config,
                                                    const cv::Mat& picture) const {
  const auto known = std::ranges::find_if(
      known_, [&](const Known& one) { return one.config == config && pictures::sameBytes(one.picture, picture); });
  return known == known_.end() ? nullptr : &*known;
}

const Detection* DetectionMemory::found(const kestrune::RingTargetConfig& config, const cv::Mat& picture) const {
  const Known* known = find(config, picture);
  return known == nullptr ? nullptr : &known->detection;
}

const Detection& DetectionMemory::detect(kestrune::RingTarget& target, const cv::Mat& picture) {
  if (const Known* known = find(target.config(), picture)) {
    known->said.sayAgain();
    return known->detection;
  }
  Known fresh{target.config(), picture.clone(), {}, {}};
  ++searches_;
  {
    const console::Recording recording(fresh.said);
    kestrune::RingTarget::Points unidentified;
    target.detect(picture, fresh.detection.points, unidentified, cv::Mat());
  }
  if (fresh.detection.points.size() < kLeastDetected) fresh.detection.trace = target.trace();
  return known_.emplace_back(std::move(fresh)).detection;
}
