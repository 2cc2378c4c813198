#include "check/init/FirstPair.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <opencv2/imgproc.hpp>
#include <sstream>

#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"
#include "platform/Median.h"
#include "polar/measure/ImageNormalisation.h"

namespace init {
namespace {

using kestrune::RingTarget;

double numberedRadius(const RingTarget& target) {
  constexpr double kSmallest = 0.05;
  std::vector<double> radii;
  for (const auto& dot : target.identifiedEllipses()) {
    const double area = dot.semi_a * dot.semi_b;
    if (dot.point_class == kestrune::morvenkit::kDot && area > 0.0) radii.push_back(std::sqrt(area));
  }
  return radii.empty() ? 0.0 : rank::quantile(std::move(radii), kSmallest);
}

/// Radii of the spots that are round, dark or bright: an estimate that asks for no board.
std::vector<double> roundSpots(const cv::Mat& grey) {
  constexpr double kLeastArea = 3.0;
  constexpr double kLeastRoundness = 0.7;
  cv::Mat binary;
  cv::threshold(grey, binary, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
  std::vector<std::vector<cv::Point>> contours;
  cv::findContours(binary, contours, cv::RETR_LIST, cv::CHAIN_APPROX_NONE);
  std::vector<double> radii;
  for (const auto& contour : contours) {
    const double area = cv::contourArea(contour);
    const double length = cv::arcLength(contour, true);
    if (area > kLeastArea && 4 * std::numbers::pi * area > kLeastRoundness * length * length)
      radii.push_back(std::sqrt(area / std::numbers::pi));
  }
  return radii;
}

double estimatedRadius(const cv::Mat& grey, int expected_dots) {
  const std::vector<double> radii = roundSpots(grey);
  // Two spots a dot would be its two sides; more than that is texture.
  const auto count = static_cast<double>(radii.size());
  const bool is_board = count > 0.5 * expected_dots && count < 4.0 * expected_dots;
  return is_board ? rank::median(radii) : 0.0;
}

}  // namespace

SeenBoard seenBoard(const cv::Mat& picture, const std::string& target_text, int expected_dots) {
  const cv::Mat grey = normaliseTo8Bit(picture);
  SeenBoard seen;
  RingTarget target;
  RingTarget::Points points;
  {
    std::ostringstream unheard;
    const console::Redirection quiet(unheard, unheard);
    RingTarget::Points unidentified;
    try {
      if (target.loadConfig(target_text)) target.detect(grey, points, unidentified, cv::Mat());
    } catch (const std::exception&) {  // A picture too small for the detector's tiles.
      points.clear();
    }
  }
  for (const auto& point : points) seen.dots.emplace(point.id, cv::Point2d(point.x, point.y));
  seen.dot_radius = seen.dots.empty() ? estimatedRadius(grey, expected_dots) : numberedRadius(target);
  return seen;
}

}  // namespace init
