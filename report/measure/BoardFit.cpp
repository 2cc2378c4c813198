#include "report/measure/BoardFit.h"

#include <Eigen/Core>
#include <cmath>
#include <cstddef>
#include <limits>

#include "polar/geometry/RigidOntoBoard.h"

namespace polarline {
namespace {

/// Three points in general fix a motion.
constexpr std::size_t kFewestDots = 3;

}  // namespace

BoardFit fitBoard(const DotLists& dots, const Board& board) {
  const std::size_t count = dots.id.size();
  const std::vector<double> none(count, std::numeric_limits<double>::quiet_NaN());
  BoardFit fit{none, none, none, none};
  std::vector<std::size_t> used;
  std::vector<Eigen::Vector3d> measured;
  std::vector<Eigen::Vector3d> places;
  for (std::size_t k = 0; k < count && !dots.x.empty() && !dots.y.empty() && !dots.z.empty(); ++k) {
    const auto place = board.placeOf(dots.id[k]);
    const Eigen::Vector3d seen(dots.x[k], dots.y[k], dots.z[k]);
    if (!place || !seen.allFinite()) continue;
    used.push_back(k);
    measured.push_back(seen);
    places.emplace_back(place->x, place->y, place->z);
  }
  if (used.size() < kFewestDots) return fit;
  const RigidMotion motion = FitRigidOntoBoard(measured, places);
  for (std::size_t k = 0; k < used.size(); ++k) {
    const Eigen::Vector3d off = motion.R * measured[k] + motion.t - places[k];
    fit.off_x[used[k]] = off.x();
    fit.off_y[used[k]] = off.y();
    fit.off_z[used[k]] = off.z();
    fit.depth_error[used[k]] = (motion.R.transpose() * off).z();
  }
  return fit;
}

}  // namespace polarline
