#include "check/init/DotSize.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "board/marks/DetectorConfig.h"
#include "check/init/Warnings.h"

namespace init {
namespace {

using polarline::BoardDescription;
using polarline::BoardKind;
using polarline::Warning;

/// Below this share of the dots the first pair is told of.
constexpr double kEnoughFound = 0.9;

/// Small rings are little larger than the dots: they keep their hollows only from this pitch on, pixels.
double leastPitchOfRings(int width) {
  if (width <= 320) return 8.0;
  return width <= 640 ? 8.7 : 21.0;
}

/// In pictures that are searched as they are, of smaller big dots' dots many are lost, pixels. Measured on rendered
/// boards.
constexpr double kLeastAsItIs = 5.7;
bool isSearchedAsItIs(int width) { return width > 640 && width < 2048; }

std::string limitsText(const DotRange& limits, int width) {
  return fmt::format("in pictures {} pixels wide dots of {:.1f} to {:.1f} pixels radius are found on such a board",
                     width, limits.least, limits.most);
}

void judgeSide(const DotRange& limits, int width, const SeenBoard& seen, const char* side, std::vector<Warning>& to) {
  if (seen.dot_radius == 0.0) return;
  const double radius = seen.dot_radius;
  const auto say = [&](const char* code, const char* size) {
    to.push_back(warning(code,
                         fmt::format("The {} dots in the {} picture of the first pair have a radius of about {:.1f} "
                                     "pixels; {}",
                                     size, side, radius, limitsText(limits, width)),
                         0));
  };
  if (radius < limits.least) say("dots_small", "smallest");
  if (radius > limits.most) say("dots_large", "smallest");
}

void judgeCount(int expected, std::size_t found, const char* side, std::vector<Warning>& to) {
  if (found > 0 && static_cast<double>(found) < kEnoughFound * expected)
    to.push_back(
        warning("dots_missing",
                fmt::format("{} of {} dots were found in the {} picture of the first pair", found, expected, side), 0));
}

}  // namespace

std::optional<DotRange> dotLimits(const BoardDescription& board, int width) {
  DotRange range = dotRangeOf(boards::detectorConfig(board), width);
  if (range.most == 0.0) return std::nullopt;
  const bool has_small_rings = board.kind == BoardKind::kSmallRings || board.kind == BoardKind::kMixedRings;
  if (has_small_rings) range.least = std::max(range.least, leastPitchOfRings(width) * board.dot_radius);
  if (isSearchedAsItIs(width)) range.least = std::max(range.least, kLeastAsItIs);
  return range;
}

std::vector<Warning> judgeDots(const BoardDescription& board, int width, const SeenBoard& left,
                               const SeenBoard& right) {
  const std::optional<DotRange> limits = dotLimits(board, width);
  if (!limits)
    return {warning("board_at_width",
                    fmt::format("The pictures are {} pixels wide; ring boards are not found from 641 to 2047, big dot "
                                "boards are",
                                width))};
  std::vector<Warning> warnings;
  const int expected = polarline::detectablePoints(board);
  judgeCount(expected, left.dots.size(), "left", warnings);
  judgeCount(expected, right.dots.size(), "right", warnings);
  judgeSide(*limits, width, left, "left", warnings);
  judgeSide(*limits, width, right, "right", warnings);
  return warnings;
}

}  // namespace init
