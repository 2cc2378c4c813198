#include "check/picture/MarkerWords.h"

#include <fmt/format.h>

#include "check/picture/Counted.h"

namespace {

constexpr std::size_t kRings = 4;
constexpr std::size_t kSolidRings = 1;
constexpr std::size_t kBigDots = 4;

std::string notRecognised(const std::string& why) { return "the markers were not recognised: " + why; }

std::size_t sized(const kestrune::RingCounts& rings) {
  return rings.small_rings + rings.big_rings + rings.small_solid_rings + rings.big_solid_rings;
}

/// A solid ring that passed for a dot or for nothing known may still be found by its place, so its count alone fails
/// nothing.
std::string ringCounts(const kestrune::ClassCounts& classes) {
  std::string text = fmt::format("{} rings are needed, {}", kRings, wereFound(classes.rings));
  if (classes.solid_rings != kSolidRings)
    text += fmt::format("; {} is needed, {}", counted(kSolidRings, "solid ring"), wereFound(classes.solid_rings));
  if (classes.unknown > 0) text += fmt::format("; {} like a marker, but of no kind", counted(classes.unknown, "mark"));
  return text;
}

std::string ringSizes(const kestrune::RingCounts& rings) {
  return fmt::format(
      "{} rings on the corners of a rectangle and {} solid ring of the right place are needed, sized by the dots "
      "beside "
      "them; found were {} small and {} big among the rings, {} small and {} big among the solid rings",
      kRings, kSolidRings, rings.small_rings, rings.big_rings, rings.small_solid_rings, rings.big_solid_rings);
}

DetectionWords unsizedRings(const SeenPicture& seen) {
  return {
      notRecognised(fmt::format(
          "{} and {} were found, but none has dots beside it to be sized by: in a picture of {} columns only dots of "
          "more than {:.1f} pixels count, and these have {:.1f}",
          counted(seen.trace.classes.rings, "ring"), counted(seen.trace.classes.solid_rings, "solid ring"),
          seen.size.width, seen.size.width / 320.0, seen.dot_radius)),
      "move the board nearer, or take a board with fewer and larger dots"};
}

DetectionWords ringWords(const SeenPicture& seen) {
  const kestrune::ClassCounts& classes = seen.trace.classes;
  if (isSearchedAsItIs(seen)) {
    return {
        notRecognised(fmt::format("pictures of 641 to 2047 columns are searched for dots and big dots only, and this "
                                  "one has {}, so {} rings are needed and none can be found",
                                  seen.size.width, kRings)),
        "use a board with four big dots (board_type 3), or pictures of up to 640 or from 2048 columns"};
  }
  if (classes.rings + classes.solid_rings == 0) {
    return {notRecognised(ringCounts(classes)),
            "make sure that the target describes this board (board_type 1 or 2 wants rings), that it is in view, sharp "
            "and lit evenly, and that the rings' hollows are two pixels wide or more"};
  }
  if (sized(seen.trace.rings) == 0) return unsizedRings(seen);
  if (classes.rings < kRings || classes.solid_rings < kSolidRings) {
    return {notRecognised(ringCounts(classes)),
            "bring all five markers into view, and look whether one is blurred, covered or in glare"};
  }
  return {notRecognised(ringSizes(seen.trace.rings)),
          "look for marks beside the board that pass for rings, and compare the markers with those of the target"};
}

DetectionWords bigDotWords(const SeenPicture& seen) {
  const kestrune::ClassCounts& classes = seen.trace.classes;
  const std::string found = wereFound(classes.big_dots);
  const char* const advice =
      "bring all four big dots into view, look whether one is blurred, covered or in glare, and make sure that the "
      "target "
      "describes this board (board_type 3 wants big dots)";
  if (isSearchedAsItIs(seen)) {
    return {notRecognised(fmt::format("{} big dots are needed, {}: no four of the ten largest of {} stand like the "
                                      "corners of the markers' rectangle",
                                      kBigDots, found, counted(seen.trace.ellipses.size(), "ellipse"))),
            advice};
  }
  if (classes.big_dots < kBigDots)
    return {notRecognised(fmt::format("{} big dots are needed, {}", kBigDots, found)), advice};
  return {notRecognised(
              fmt::format("{} big dots of one size are needed; {} by area, but of the eight largest fewer than {} "
                          "are within a seventh of the mean of the first four",
                          kBigDots, found, kBigDots)),
          "look for large dark marks beside the board, cover or crop them, or view the board less slanted"};
}

}  // namespace

DetectionWords markerWords(const SeenPicture& seen) {
  return isBigDotBoard(seen) ? bigDotWords(seen) : ringWords(seen);
}

DetectionWords arrangementWords(const SeenPicture& seen) {
  if (!seen.exception.empty()) {
    return {"the markers' places in the target give no mapping to the picture: " + seen.exception,
            "look at the target: inner_width, inner_height, the land marks, and for id_method 1 step and step_y"};
  }
  if (isBigDotBoard(seen)) {
    return {fmt::format("{} were taken for the markers, but they don't stand as the board's: corners of a rectangle of "
                        "which one is moved a column in, each angle within 70 to 110 degrees",
                        counted(seen.trace.markers.size(), "big dot")),
            "look whether other large dots were taken for markers, and view the board less slanted"};
  }
  return {
      "the markers were recognised, but they don't stand as the board's: the solid ring must stand on the line through "
      "the two rings of its side",
      "look whether another mark was taken for a marker, and compare the markers with those of the target"};
}
