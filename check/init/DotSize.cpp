#include "check/init/DotSize.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "check/init/Warnings.h"

namespace init {
namespace {

using polarline::BoardDescription;
using polarline::BoardKind;
using polarline::Warning;

// The largest widths of the scales at which pictures are searched.
constexpr int kFourTimes = 320;
constexpr int kTwice = 640;
constexpr int kAsItIs = 2047;

/// Below this share of the dots the first pair is told of.
constexpr double kEnoughFound = 0.9;

/// Rings are rings only from some pixels on; they are as large as dots, so their pitch counts.
bool hasSmallRings(const BoardDescription& board) { return board.kind != BoardKind::kBigRings; }

DotLimits ringLimits(const BoardDescription& board, int width) {
  const auto pitch = [&](double pixels) { return hasSmallRings(board) ? pixels * board.dot_radius : 0.0; };
  if (width <= kFourTimes) return {std::max(1.6, pitch(8.0)), 18.0};
  if (width <= kTwice) return {hasSmallRings(board) ? 2.6 : 2.0, 37.0};
  return {std::max(width / 320.0, pitch(21.0)), 150.0};
}

DotLimits bigDotLimits(int width) {
  if (width <= kFourTimes) return {1.3, 13.0};
  if (width <= kTwice) return {2.6, 26.0};
  if (width <= kAsItIs) return {5.7, 27.0};
  return {10.6, 106.0};
}

/// Detected outlines lie a little outside the printed ones, for which the limits hold.
double printedRadius(double detected, int width) { return detected - (width > kAsItIs ? 0.8 : 0.25); }

std::string limitsText(const DotLimits& limits, int width) {
  return fmt::format("in pictures {} pixels wide dots of {:.1f} to {:.1f} pixels radius are found on such a board",
                     width, limits.least, limits.most);
}

void judgeSide(const DotLimits& limits, int width, const SeenBoard& seen, const char* side, std::vector<Warning>& to) {
  if (seen.dot_radius == 0.0) return;
  const double radius = printedRadius(seen.dot_radius, width);
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

void judgeCount(int expected, std::size_t found, const char* side, const std::string& limits,
                std::vector<Warning>& to) {
  if (found == 0)
    to.push_back(warning("board_not_found",
                         fmt::format("The board was not found in the {} picture of the first pair; {}", side, limits),
                         0));
  else if (static_cast<double>(found) < kEnoughFound * expected)
    to.push_back(
        warning("dots_missing",
                fmt::format("{} of {} dots were found in the {} picture of the first pair", found, expected, side), 0));
}

}  // namespace

std::optional<DotLimits> dotLimits(const BoardDescription& board, int width) {
  if (board.kind == BoardKind::kBigDots) return bigDotLimits(width);
  if (width > kTwice && width <= kAsItIs) return std::nullopt;
  return ringLimits(board, width);
}

std::vector<Warning> judgeDots(const BoardDescription& board, int width, const SeenBoard& left,
                               const SeenBoard& right) {
  const std::optional<DotLimits> limits = dotLimits(board, width);
  if (!limits)
    return {warning("board_at_width",
                    fmt::format("The pictures are {} pixels wide; ring boards are not found from {} to {}, big dot "
                                "boards are",
                                width, kTwice + 1, kAsItIs))};
  std::vector<Warning> warnings;
  const int expected = polarline::detectablePoints(board);
  judgeCount(expected, left.dots.size(), "left", limitsText(*limits, width), warnings);
  judgeCount(expected, right.dots.size(), "right", limitsText(*limits, width), warnings);
  judgeSide(*limits, width, left, "left", warnings);
  judgeSide(*limits, width, right, "right", warnings);
  return warnings;
}

}  // namespace init
