#include "check/picture/DotSize.h"

#include <fmt/format.h>

#include <algorithm>
#include <numbers>

namespace {

using kestrune::morvenkit::PointClass;

/// Border pixels of a drawn circle for each pixel of its radius.
constexpr double kBorderPerRadius = 4.0 * std::numbers::sqrt2;
/// Shortest outline of a dot of a big dot board.
constexpr double kShortestDot = 30.0;
/// In pixels of `max_radius` and `min_radius`: an outline is shorter than the one and as long as the other.
constexpr double kLongestPerRadius = 8.5;
constexpr double kShortestPerRadius = 5.0;
/// The big dots of a board are about half as large again as its dots, and must be found too.
constexpr double kBigDotSize = 1.5;
/// In pictures that are searched as they are, larger dots are hollowed by the threshold's block of 37 pixels.
constexpr double kMostAsItIs = 27.0;
/// Beside a ring only dots larger than this share of the columns count.
constexpr double kColumnsPerRadius = 320.0;
/// Smaller dots of a ring board go with rings whose hollows and cores are lost, in pictures that are searched at four
/// times their size and at twice. Measured on rendered boards.
constexpr double kLeastAtFourTimes = 1.6;
constexpr double kLeastAtTwice = 2.0;
/// So near to an end of the range a dot here or there is lost.
constexpr double kNear = 1.1;

/// Pixels of the picture for each pixel that is searched.
double pixelsPerSearched(int width) {
  constexpr int kFourTimes = 320;
  constexpr int kTwice = 640;
  constexpr int kAsItIs = 2047;
  if (width <= kFourTimes) return 0.25;
  if (width <= kTwice) return 0.5;
  return width <= kAsItIs ? 1.0 : 2.0;
}

DotRange rangeOnBigDotBoards(const kestrune::RingTargetConfig& config, double pixels) {
  if (pixels == 1.0) return {kShortestDot / kBorderPerRadius, kMostAsItIs};
  const double shortest = std::max(kShortestDot, kShortestPerRadius * config.min_radius);
  const double longest = kLongestPerRadius * config.max_radius;
  return {shortest / kBorderPerRadius * pixels, longest / kBorderPerRadius / kBigDotSize * pixels};
}

DotRange rangeOnRingBoards(int width, double pixels) {
  if (pixels == 1.0) return {};
  const double longest = kLongestPerRadius * kestrune::morvenkit::EllipseDetectorParams().max_radius;
  const double counted = width / kColumnsPerRadius;
  const double drawn = pixels < 0.5 ? kLeastAtFourTimes : pixels < 1.0 ? kLeastAtTwice : 0.0;
  return {std::max(counted, drawn), longest / kBorderPerRadius * pixels};
}

bool isDot(const kestrune::Ellipse& ellipse) { return ellipse.point_class == PointClass::kDot; }
bool anyEllipse(const kestrune::Ellipse& /*ellipse*/) { return true; }

/// Half of the radii together are of smaller ellipses.
double weightedMedian(const kestrune::RingTarget::Ellipses& ellipses, bool (*counts)(const kestrune::Ellipse&)) {
  std::vector<double> radii;
  double whole = 0.0;
  for (const auto& ellipse : ellipses) {
    if (!counts(ellipse) || !(ellipse.semi_a > 0.0)) continue;  // Made-up dots have no outline.
    radii.push_back(ellipse.semi_a);
    whole += ellipse.semi_a;
  }
  std::ranges::sort(radii);
  double below = 0.0;
  for (const double radius : radii) {
    below += radius;
    if (2.0 * below >= whole) return radius;
  }
  return 0.0;
}

}  // namespace

DotRange dotRangeOf(const kestrune::RingTargetConfig& config, int width) {
  const double pixels = pixelsPerSearched(width);
  return config.board_type == kestrune::kBigDotBoard ? rangeOnBigDotBoards(config, pixels)
                                                     : rangeOnRingBoards(width, pixels);
}

double medianDotRadius(const kestrune::RingTarget& target) {
  if (!target.identifiedEllipses().empty()) return weightedMedian(target.identifiedEllipses(), anyEllipse);
  return medianDotRadius(target.trace());
}

double medianDotRadius(const kestrune::DetectionTrace& trace) {
  const auto& all = trace.ellipses;
  const double of_dots = weightedMedian(all, isDot);
  return of_dots > 0.0 ? of_dots : weightedMedian(all, anyEllipse);
}

void warnOfDotSize(const SeenPicture& seen, std::vector<polarline::Warning>& warnings) {
  const DotRange range = dotRangeOf(seen);
  if (seen.dot_radius == 0.0 || range.most == 0.0) return;
  const std::string fact = fmt::format(
      "the dots have a radius of {:.1f} pixels; in a picture of {} columns, searched at {} x {}, dots of {:.1f} "
      "to {:.1f} pixels are found",
      seen.dot_radius, seen.size.width, seen.trace.working_size.width, seen.trace.working_size.height, range.least,
      range.most);
  if (seen.dot_radius < kNear * range.least) {
    warnings.push_back({"dots_too_small", fact, "move the board nearer, or take a board with fewer and larger dots"});
  } else if (seen.dot_radius * kNear > range.most) {
    warnings.push_back({"dots_too_large", fact, "move the board away, or take a board with smaller dots"});
  }
}
