#include "polarline/detect.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <opencv2/core.hpp>
#include <set>
#include <sstream>
#include <stdexcept>
#include <utility>

#include "check/picture/DetectionWords.h"
#include "check/picture/DotSize.h"
#include "check/picture/IdWarnings.h"
#include "check/picture/MarkerSpans.h"
#include "check/picture/SeenPicture.h"
#include "check/picture/Stages.h"
#include "check/picture/TargetFile.h"
#include "platform/Console.h"
#include "polar/measure/ImageNormalisation.h"

namespace {

using kestrune::RingTarget;
using kestrune::morvenkit::PointClass;

/// The detection as a run makes it; returns the words of an exception that ended it.
std::string search(RingTarget& target, const cv::Mat& image, RingTarget::Points& points) {
  if (image.empty()) return {};  // The trace of a new target stopped at the image.
  try {
    RingTarget::Points unidentified;
    target.detect(normaliseTo8Bit(image), points, unidentified, cv::Mat());
  } catch (const cv::Exception& error) {
    if (error.code == cv::Error::StsNoMem) throw;
    return error.err.empty() ? std::string(error.what()) : error.err;
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return {};
}

const char* kindOf(std::uint8_t point_class) {
  switch (point_class) {
    case PointClass::kDot:
      return "dot";
    case PointClass::kRing:
      return "ring";
    case PointClass::kSolidRing:
      return "solid_ring";
    case PointClass::kBigDot:
      return "big_dot";
    case PointClass::kUnknown:
      return "unknown";
    default:
      return "rejected";
  }
}

bool isMarker(const kestrune::DetectionTrace& trace, const cv::Point2f& centre) {
  return std::ranges::find(trace.markers, centre) != trace.markers.end();
}

void fillEllipses(const kestrune::DetectionTrace& trace, polarline::Detection& detection) {
  for (const auto& seen : trace.ellipses) {
    const cv::Point2f centre(static_cast<float>(seen.x), static_cast<float>(seen.y));
    detection.ellipses.push_back(
        {seen.x, seen.y, seen.semi_a, seen.semi_b, seen.angle, kindOf(seen.point_class), isMarker(trace, centre)});
  }
  detection.classes = {trace.classes.dots,     trace.classes.rings,   trace.classes.solid_rings,
                       trace.classes.big_dots, trace.classes.unknown, 0};
  for (const auto& ellipse : detection.ellipses) detection.classes.rejected += ellipse.kind == "rejected" ? 1U : 0U;
}

void fillContours(const kestrune::morvenkit::ContourCounts& counts, polarline::Detection& detection) {
  detection.contours = {counts.traced,     counts.too_short, counts.not_round,
                        counts.not_fitted, counts.inexact,   counts.accepted};
}

int placesOf(const polarline::DetectedBoard& board) { return board.rows * board.columns; }

void fillDots(const RingTarget::Points& points, polarline::Detection& detection) {
  const int columns = std::max(1, detection.board.columns);
  std::set<int> seen;
  for (const auto& point : points) {
    detection.dots.push_back({point.id, point.id / columns, point.id % columns, point.x, point.y});
    seen.insert(point.id);
  }
  std::ranges::stable_sort(detection.dots, {}, &polarline::Dot::id);
  for (int id = 0; id < placesOf(detection.board); ++id) {
    if (!seen.contains(id)) detection.missing.push_back(id);
  }
}

polarline::DetectedBoard boardOf(const kestrune::RingTargetConfig& config) {
  return {config.board_type, config.rows, config.cols, config.step, kestrune::rowPitchOf(config)};
}

bool hasBigRings(const RingTarget& target) {
  return target.markerSizes().solid_big && !target.markerSizes().rings_small;
}

void fillWords(const SeenPicture& seen, polarline::Detection& detection) {
  DetectionWords words = wordsOf(seen);
  detection.step = nameOf(seen.trace.step);
  detection.text = std::move(words.text);
  detection.advice = std::move(words.advice);
  detection.stages = stagesOf(seen);
  warnOfDotSize(seen, detection.warnings);
  warnOfIds(detection);
  warnOfNumbering(seen, detection);
}

}  // namespace

namespace polarline {

Detection detect(const cv::Mat& image, const std::string& target) {
  std::ostringstream unheard;
  const console::Redirection silence(unheard, unheard);
  RingTarget ring_target;
  loadTarget(target, ring_target);
  RingTarget::Points points;
  const std::string exception = search(ring_target, image, points);
  const kestrune::DetectionTrace& trace = ring_target.trace();
  Detection detection;
  detection.found = !points.empty();
  detection.board = boardOf(ring_target.config());
  detection.size = image.size();
  detection.working_size = trace.working_size;
  detection.dot_radius = medianDotRadius(ring_target);
  detection.binary = trace.binary;
  fillContours(trace.contours, detection);
  fillEllipses(trace, detection);
  fillDots(points, detection);
  fillWords({ring_target.config(), trace, image.size(), image.type(), exception, detection.dot_radius,
             static_cast<std::size_t>(placesOf(detection.board)) - detection.missing.size(), hasBigRings(ring_target)},
            detection);
  return detection;
}

}  // namespace polarline
