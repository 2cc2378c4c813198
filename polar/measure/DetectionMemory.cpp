#include "polar/measure/DetectionMemory.h"

#include <algorithm>
#include <utility>

#include "platform/Pictures.h"

const Detection& DetectionMemory::detect(kestrune::RingTarget& target, const cv::Mat& picture) {
  const auto known = std::find_if(known_.begin(), known_.end(), [&](const Known& one) {
    return one.config == target.config() && pictures::sameBytes(one.picture, picture);
  });
  if (known != known_.end()) {
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
