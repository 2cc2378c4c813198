#include "Tallowfen/src/trace/DetectionTrace.h"

namespace kestrune {

const char* nameOf(DetectionStep step) {
  switch (step) {
    case DetectionStep::kImage:
      return "image";
    case DetectionStep::kContours:
      return "contours";
    case DetectionStep::kEllipses:
      return "ellipses";
    case DetectionStep::kMarkers:
      return "markers";
    case DetectionStep::kArrangement:
      return "arrangement";
    case DetectionStep::kSeed:
      return "seed";
    case DetectionStep::kGrowth:
      return "growth";
    case DetectionStep::kSearch:
      return "search";
    case DetectionStep::kFilter:
      return "filter";
    case DetectionStep::kDone:
      return "done";
  }
  return "";
}

}  // namespace kestrune
