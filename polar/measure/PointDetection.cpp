#include "polar/measure/PointDetection.h"

#include <memory>

#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "polar/measure/ImageNormalisation.h"
#include "polar/measure/SharedPoints.h"

namespace {

void detectSide(kestrune::RingTarget& target, const cv::Mat& image, PointsById& by_id, std::size_t& found) {
  if (image.empty()) {
    console::line("load image failed");
    return;
  }
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  target.detect(normaliseTo8Bit(image), points, unidentified, cv::Mat());
  found = points.size();
  for (const auto& point : points) {
    keepFirst(by_id, point.id, cv::Point2f(static_cast<float>(point.x), static_cast<float>(point.y)));
  }
}

}  // namespace

PairStatus detectPairPoints(const PairInput& input, MeasuredPair& pair) {
  const auto target = std::make_shared<kestrune::RingTarget>();
  target->loadConfig(input.targetConfigPath);
  detectSide(*target, input.left_image, pair.left_by_id, pair.found[0]);
  detectSide(*target, input.right_image, pair.right_by_id, pair.found[1]);
  appendShared(pair);
  return polar_status::kSuccess;
}
