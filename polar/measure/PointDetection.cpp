#include "PolarLinePrecision/Status.h"
#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "polar/evaluate/PairEvaluator.h"
#include "polar/measure/ImageNormalisation.h"
#include "polar/measure/SharedPoints.h"

namespace {

void detectSide(kestrune::RingTarget& target, const cv::Mat& image, PointsById& by_id) {
  if (image.empty()) {
    console::line("load image failed");
    return;
  }
  kestrune::RingTarget::Points points;
  kestrune::RingTarget::Points unidentified;
  target.detect(normaliseTo8Bit(image), points, unidentified, cv::Mat());
  for (const auto& point : points) {
    keepFirst(by_id, point.id, cv::Point2f(static_cast<float>(point.x), static_cast<float>(point.y)));
  }
}

}  // namespace

// The light form: no board points, no test of the configuration, no least count, and the maps keep the ids of one image
// only.
PairStatus PairEvaluator::DetectPairPoints(const char* targetConfigPath, const cv::Mat& left_image,
                                           const cv::Mat& right_image, MeasuredPair& pair) const {
  if (measurement) return measurement(1, pair);
  const auto target = std::make_shared<kestrune::RingTarget>();
  target->loadConfig(targetConfigPath);
  detectSide(*target, left_image, pair.left_by_id);
  detectSide(*target, right_image, pair.right_by_id);
  appendShared(pair);
  return polar_status::kSuccess;
}
