#include "check/picture/Stages.h"

#include <fmt/format.h>

#include <string>

#include "check/picture/Counted.h"
#include "check/picture/PixelType.h"

namespace {

using kestrune::DetectionStep;

std::string scaleOf(const SeenPicture& seen) {
  const cv::Size searched = seen.trace.working_size;
  if (searched == seen.size) return "searched as it is, for circles";
  if (searched.empty()) return "not searched";
  const double pixels = pixelsPerSearched(seen);
  return fmt::format("searched at {} x {}, {}", searched.width, searched.height,
                     pixels > 1.0 ? "half the size" : fmt::format("{:.0f} times the size", 1.0 / pixels));
}

std::string classesOf(const SeenPicture& seen) {
  const kestrune::ClassCounts& classes = seen.trace.classes;
  std::string text = counted(classes.dots, "dot");
  if (isBigDotBoard(seen) || classes.big_dots > 0) text += ", " + counted(classes.big_dots, "big dot");
  if (!isBigDotBoard(seen) || classes.rings + classes.solid_rings > 0)
    text += ", " + counted(classes.rings, "ring") + ", " + counted(classes.solid_rings, "solid ring");
  if (classes.unknown > 0) text += fmt::format(", {} of no known kind", classes.unknown);
  return text;
}

std::string textOf(DetectionStep step, const SeenPicture& seen) {
  const kestrune::DetectionTrace& trace = seen.trace;
  switch (step) {
    case DetectionStep::kImage:
      return fmt::format("{} x {}, {}, {}", seen.size.width, seen.size.height, pixelTypeOf(seen.type), scaleOf(seen));
    case DetectionStep::kContours:
      return counted(trace.contours.traced, "outline");
    case DetectionStep::kEllipses:
      return fmt::format("{}; {} too short, {} not round, {} not fitted, {} inexact",
                         counted(trace.contours.accepted, "ellipse"), trace.contours.too_short,
                         trace.contours.not_round, trace.contours.not_fitted, trace.contours.inexact);
    case DetectionStep::kMarkers:
      return classesOf(seen);
    case DetectionStep::kArrangement:
      return counted(trace.markers.size(), "marker");
    case DetectionStep::kSeed:
      return fmt::format("{} of the 9 dots around a marker", trace.fullest_block);
    case DetectionStep::kGrowth:
      return fmt::format("{} numbered", trace.numbered);
    case DetectionStep::kSearch:
      return fmt::format("{} in the board's grid", counted(trace.matches, "ellipse"));
    case DetectionStep::kFilter:
      return fmt::format("{} kept of {}", trace.kept, trace.numbered);
    case DetectionStep::kDone:
      break;
  }
  return {};
}

std::vector<DetectionStep> stepsOf(const SeenPicture& seen) {
  std::vector<DetectionStep> steps = {DetectionStep::kImage, DetectionStep::kContours, DetectionStep::kEllipses,
                                      DetectionStep::kMarkers, DetectionStep::kArrangement};
  if (isBigDotBoard(seen) && seen.config.id_method == kestrune::kIdsBySearch) {
    steps.push_back(DetectionStep::kSearch);
  } else {
    steps.push_back(DetectionStep::kSeed);
    steps.push_back(DetectionStep::kGrowth);
  }
  if (seen.config.detection_switch == kestrune::kSwitchedOn) steps.push_back(DetectionStep::kFilter);
  return steps;
}

}  // namespace

std::vector<polarline::DetectionStage> stagesOf(const SeenPicture& seen) {
  std::vector<polarline::DetectionStage> stages;
  for (const DetectionStep step : stepsOf(seen)) {
    if (step > seen.trace.step) {
      stages.push_back({nameOf(step), "not reached", ""});
    } else {
      stages.push_back({nameOf(step), step == seen.trace.step ? "stopped" : "passed", textOf(step, seen)});
    }
  }
  return stages;
}
