#include "polar/evaluate/frame/FrameSide.h"

#include <opencv2/imgproc.hpp>

#include "platform/Pictures.h"
#include "polar/evaluate/frame/ExpectedPoint.h"
#include "polar/evaluate/frame/FrameDrawing.h"

namespace {

using kestrune::RingTarget;

/// Not the grey of the measurement: colour images are taken as RGBA here, whatever they are.
cv::Mat frameGrey(const cv::Mat& image) {
  if (image.type() == CV_16UC1) return pictures::stretchTo8Bit(image);
  if (image.type() != CV_8UC3 && image.type() != CV_8UC4) return image;
  cv::Mat grey;
  cv::cvtColor(image, grey, cv::COLOR_RGBA2GRAY);
  return grey;
}

RingTarget::Points matchAll(const RingTarget::Points& detected, const FrameExpectation& expectation) {
  RingTarget::Points matched(expectation.ids.size());
  for (std::size_t k = 0; k < matched.size(); ++k) {
    const std::vector<double>& pixel = expectation.pixels.at(k);
    const cv::Point2f expected_pixel(static_cast<float>(pixel.at(0)), static_cast<float>(pixel.at(1)));
    MatchExpectedPoint(expected_pixel, detected, expectation.ids[k], matched[k]);
  }
  return matched;
}

}  // namespace

FrameSide findFramePoints(RingTarget& target, const cv::Mat& image, const FrameExpectation& expectation) {
  FrameSide side;
  const cv::Mat grey = frameGrey(image);
  cv::cvtColor(grey, side.picture, cv::COLOR_GRAY2BGR);
  RingTarget::Points detected;
  RingTarget::Points unidentified;
  target.detectframework(grey, detected, unidentified, cv::Mat());
  frame_drawing::drawDetected(side.picture, detected);
  side.points = matchAll(detected, expectation);
  frame_drawing::drawMatched(side.picture, side.points);
  return side;
}
