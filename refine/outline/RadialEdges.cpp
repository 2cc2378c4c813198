#include "refine/outline/RadialEdges.h"

#include <algorithm>
#include <cmath>

#include "refine/outline/Directions.h"

namespace refine {
namespace {

constexpr std::size_t kDirections = 24;
constexpr std::size_t kMostRadii = 256;
constexpr double kStep = 0.375;             ///< Pixels.
constexpr std::size_t kHalfDifference = 2;  ///< Steps.
/// Of the strongest edge. A neighbour's outline, smeared over the circles that it crosses, stays below this.
constexpr double kStrong = 0.5;

/// The mean grey by radius.
struct Profile {
  std::array<double, kMostRadii> grey;
  std::size_t count = 0;
  double step = 0.0;  ///< Board unit.
};

/// Largest radius that stays in the picture, board unit.
double roomAround(const cv::Size& size, const cv::Point2d& centre, const cv::Matx22d& J) {
  const double across = std::hypot(J(0, 0), J(0, 1)), down = std::hypot(J(1, 0), J(1, 1));
  const double room_x = std::min(centre.x, size.width - 1.001 - centre.x);
  const double room_y = std::min(centre.y, size.height - 1.001 - centre.y);
  return std::min(room_x / across, room_y / down);
}

Profile profileAround(const GreyPicture& picture, const cv::Point2d& centre, const cv::Matx22d& J, double reach) {
  const double scale = std::sqrt(std::abs(cv::determinant(J)));
  Profile profile;
  profile.step = std::max(kStep / scale, reach / static_cast<double>(kMostRadii - 1));
  const double last = std::min(reach, roomAround(picture.grey.size(), centre, J));
  if (!(last * scale >= 1.0)) return profile;
  profile.count = std::min(static_cast<std::size_t>(last / profile.step) + 1, kMostRadii);
  profile.grey.fill(0.0);
  static const auto kAround = directionsAround<kDirections>();
  for (const cv::Vec2d& direction : kAround) {
    const cv::Vec2d step = J * direction * profile.step;
    for (std::size_t i = 0; i < profile.count; ++i) {
      const auto times = static_cast<double>(i);
      profile.grey[i] += picture.between(centre.x + times * step[0], centre.y + times * step[1]);
    }
  }
  for (std::size_t i = 0; i < profile.count; ++i) profile.grey[i] /= kDirections;
  return profile;
}

double riseAt(const Profile& profile, std::size_t i) {
  // Within the first steps the circles are points: what is beyond the centre is the other side.
  const std::size_t inner = i < kHalfDifference ? kHalfDifference - i : i - kHalfDifference;
  return profile.grey[i + kHalfDifference] - profile.grey[inner];
}

/// Place of the top of the parabola through three values, -0.5 to 0.5.
double topOf(double before, double here, double after) {
  const double bend = before - 2.0 * here + after;
  return bend == 0.0 ? 0.0 : std::clamp(0.5 * (before - after) / bend, -0.5, 0.5);
}

}  // namespace

RadialEdges radialEdges(const GreyPicture& picture, const cv::Point2d& centre, const cv::Matx22d& J, double reach) {
  RadialEdges found;
  const Profile profile = profileAround(picture, centre, J, reach);
  if (profile.count < 2 * kHalfDifference + 2) return found;
  const std::size_t end = profile.count - kHalfDifference;
  double strongest = 0.0;
  for (std::size_t i = 1; i < end; ++i) strongest = std::max(strongest, std::abs(riseAt(profile, i)));
  for (std::size_t i = 2; i + 1 < end && found.count < RadialEdges::kMost; ++i) {
    const double rise = riseAt(profile, i);
    const double sign = rise < 0.0 ? -1.0 : 1.0;
    const double before = sign * riseAt(profile, i - 1), after = sign * riseAt(profile, i + 1);
    const double here = std::abs(rise);
    if (here < kStrong * strongest || here <= before || here < after) continue;
    const double place = static_cast<double>(i) + topOf(before, here, after);
    found.edges[found.count++] = {place * profile.step, rise};
  }
  return found;
}

}  // namespace refine
