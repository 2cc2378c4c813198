#include "polar/measure/PointDetection.h"

#include <memory>

#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "polar/measure/ImageNormalisation.h"
#include "polar/measure/SharedPoints.h"

namespace {

void detectSide(DetectionMemory& detections, kestrune::RingTarget& target, const cv::Mat& image, PointsById& by_id,
                std::size_t& found) {
  if (image.empty()) {
    console::line("load image failed");
    return;
  }
  const kestrune::RingTarget::Points& points = detections.detect(target, normaliseTo8Bit(image)).points;
  found = points.size();
  for (const auto& point : points) {
    keepFirst(by_id, point.id, cv::Point2f(static_cast<float>(point.x), static_cast<float>(point.y)));
  }
}

}  // namespace

PairStatus detectPairPoints(const PairInput& input, MeasuredPair& pair, DetectionMemory& detections) {
  const auto target = std::make_shared<kestrune::RingTarget>();
  const bool configured = target->loadConfig(input.targetConfigPath);
  // What a picture leaves in the target counts in a next one of another size: such a pair is searched as it comes.
  const bool alike = configured && input.left_image.size == input.right_image.size;
  DetectionMemory none;
  DetectionMemory& memory = alike ? detections : none;
  detectSide(memory, *target, input.left_image, pair.left_by_id, pair.found[0]);
  detectSide(memory, *target, input.right_image, pair.right_by_id, pair.found[1]);
  appendShared(pair);
  return polar_status::kSuccess;
}
