#include "check/refined/BoardPlaces.h"

#include "Tallowfen/src/RingTarget.h"

namespace polarline {

BoardPlaces::BoardPlaces(const std::string& target) {
  kestrune::RingTarget board;
  if (!board.loadConfig(target)) return;
  for (const auto& point : board.boardModel()) places_.push_back(point.position);
}

std::optional<cv::Point3d> BoardPlaces::of(std::int32_t id) const {
  if (id < 0 || static_cast<std::size_t>(id) >= places_.size()) return std::nullopt;
  return places_[static_cast<std::size_t>(id)];
}

}  // namespace polarline
