#pragma once

#include <map>
#include <opencv2/core.hpp>
#include <sstream>
#include <stdexcept>
#include <string>

#include "Tallowfen/src/RingTarget.h"
#include "platform/Console.h"

/// The ids that the detector finds in a picture, and their centres in pixels. `target` is a path or the lines
/// themselves.
inline std::map<int, cv::Point2d> detectedIds(const std::string& target, const cv::Mat& picture) {
  std::ostringstream lines;
  const console::Redirection silence(lines, lines);
  kestrune::RingTarget detector;
  if (!detector.loadConfig(target)) throw std::runtime_error("target not loaded");
  kestrune::RingTarget::Points points, unidentified;
  detector.detect(picture, points, unidentified, cv::Mat());
  std::map<int, cv::Point2d> found;
  for (const auto& point : points) {
    if (!found.emplace(point.id, cv::Point2d(point.x, point.y)).second) {
      throw std::runtime_error("an id was found twice: " + std::to_string(point.id));
    }
  }
  return found;
}
