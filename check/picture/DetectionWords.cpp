#include "check/picture/DetectionWords.h"

#include <fmt/format.h>

#include "check/picture/Counted.h"
#include "check/picture/DotSize.h"
#include "check/picture/MarkerSpans.h"
#include "check/picture/MarkerWords.h"
#include "check/picture/PixelType.h"

namespace {

using kestrune::DetectionStep;

DetectionWords imageWords(const SeenPicture& seen) {
  if (seen.size.empty()) return {"the picture is empty", "make sure that the file was written whole"};
  const std::string size = fmt::format("{} x {} pixels", seen.size.width, seen.size.height);
  if (!seen.exception.empty()) {
    const char* const block =
        ", and look at bin_blocksize in the target, which must not exceed the width that is searched";
    return {fmt::format("the picture of {} can't be searched: {}", size, seen.exception),
            std::string("use a larger picture") + (isBigDotBoard(seen) ? block : "")};
  }
  return {fmt::format(
              "the picture of {} has pixels of {}; 8-bit pixels of 1, 3 or 4 channels or 16-bit pixels of 1 channel "
              "are wanted",
              size, pixelTypeOf(seen.type)),
          "convert the picture"};
}

DetectionWords contourWords(const SeenPicture& seen) {
  if (seen.trace.binary.empty()) {
    return {fmt::format("there is no two-valued picture: bin_method {} is none of 0, 1 and 2", seen.config.bin_method),
            "correct bin_method in the target"};
  }
  return {"the two-valued picture shows no outline at all",
          "make sure that the board is in view and the picture exposed"};
}

std::string sizesFound(const SeenPicture& seen) {
  const DotRange range = dotRangeOf(seen);
  if (range.most == 0.0) return {};
  return fmt::format("; in a picture of {} columns dots with a radius of {:.1f} to {:.1f} pixels are found",
                     seen.size.width, range.least, range.most);
}

DetectionWords ellipseWords(const SeenPicture& seen) {
  const auto& contours = seen.trace.contours;
  const char* const limits =
      "; look at min_radius, max_radius, max_sigma, min_circularity and bin_method in the target too";
  return {fmt::format("of {} none became an ellipse: {} too short, {} too long or not round, {} of no mark's shape, {} "
                      "inexact or over the picture's edge{}",
                      counted(contours.traced, "outline"), contours.too_short, contours.not_round, contours.not_fitted,
                      contours.inexact, sizesFound(seen)),
          std::string("make sure that the board is in view, sharp and lit") + (isBigDotBoard(seen) ? limits : "")};
}

DetectionWords seedWords(const SeenPicture& seen) {
  if (isBigDotBoard(seen) && seen.config.id_method > kestrune::kIdsBySearch) {
    return {fmt::format("no numbering was begun: id_method {} is none of 0 and 1", seen.config.id_method),
            "correct id_method in the target"};
  }
  if (const std::string problem = spanProblem(seen.config, countedSpan(seen)); !problem.empty())
    return {"the numbering could not begin: " + problem, "correct inner_width and inner_height in the target"};
  return {fmt::format(
              "the numbering could not begin: 9 dots of a 3 x 3 block around a marker are needed, in the fullest {}",
              wereFound(seen.trace.fullest_block)),
          "look whether dots beside the markers are covered, blurred or merged, and compare inner_width, inner_height, "
          "outter_width and outter_height of the target with the board"};
}

DetectionWords growthWords(const SeenPicture& seen) {
  return {
      fmt::format("the numbering gave no dot: the block around a marker, {} dots, names an ellipse twice, or the board "
                  "has no columns",
                  seen.trace.fullest_block),
      "look at rows, cols and the markers' rectangles in the target"};
}

DetectionWords searchWords(const SeenPicture& seen) {
  const std::size_t all = seen.trace.classes.dots + seen.trace.classes.big_dots;
  return {fmt::format("the search found too few dots: more than half of {} must stand in the board's grid, {} do",
                      counted(all, "ellipse"), seen.trace.matches),
          "compare rows, cols, step and step_y of the target with the board (whole steps of 9 or more), or number by "
          "growth (id_method 0)"};
}

DetectionWords filterWords(const SeenPicture& seen) {
  return {fmt::format("all of {} that were numbered are filtered out: none has an id of detection_id",
                      counted(seen.trace.numbered, "dot")),
          "correct detection_id in the target, or switch detection_switch off"};
}

DetectionWords foundWords(const SeenPicture& seen) {
  const std::size_t all = static_cast<std::size_t>(seen.config.rows) * seen.config.cols;
  std::string text = fmt::format("{} numbered of {}", seen.places, counted(all, "dot"));
  if (seen.big_rings && seen.places < all)
    text += "; big rings cover the dots beside them, so that 20 of such a board have no number";
  return {text, ""};
}

}  // namespace

DetectionWords wordsOf(const SeenPicture& seen) {
  switch (seen.trace.step) {
    case DetectionStep::kImage:
      return imageWords(seen);
    case DetectionStep::kContours:
      return contourWords(seen);
    case DetectionStep::kEllipses:
      return ellipseWords(seen);
    case DetectionStep::kMarkers:
      return markerWords(seen);
    case DetectionStep::kArrangement:
      return arrangementWords(seen);
    case DetectionStep::kSeed:
      return seedWords(seen);
    case DetectionStep::kGrowth:
      return growthWords(seen);
    case DetectionStep::kSearch:
      return searchWords(seen);
    case DetectionStep::kFilter:
      return filterWords(seen);
    case DetectionStep::kDone:
      break;
  }
  return foundWords(seen);
}
