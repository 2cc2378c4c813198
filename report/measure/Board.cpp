#include "report/measure/Board.h"

namespace polarline {
namespace {

/// The bits above hold a layer, which the library leaves 0.
constexpr std::uint32_t kPlaceBits = 0xFFFFU;

std::int32_t placeBitsOf(std::int32_t id) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(id) & kPlaceBits);
}

}  // namespace

/// The points of a frame, by id from 1.
std::vector<cv::Point3d> framePoints(const Json& settings) {
  std::vector<cv::Point3d> places;
  const auto found = settings.find("Frame_3D");
  if (found == settings.end() || !found->is_array()) return places;
  for (const Json& point : *found) {
    if (!point.is_array() || point.size() != 3) return {};
    places.emplace_back(numberOf(point[0]), numberOf(point[1]), numberOf(point[2]));
  }
  return places;
}

bool isFrame(const Json& settings) {
  const auto found = settings.find("frame_work");
  return found != settings.end() && found->is_number() && *found != 0;
}

Board::Board(const Json& document) {
  if (isFrame(document["settings"])) {
    is_frame_ = true;
    places_ = framePoints(document["settings"]);
    return;
  }
  const Json& board = document["board"];
  rows_ = board["rows"].get<std::int32_t>();
  columns_ = board["cols"].get<std::int32_t>();
  step_x_ = numberOf(board["step"]);
  step_y_ = numberOf(board["step_y"]);
  if (step_y_ == 0.0) step_y_ = step_x_;
}

std::int32_t Board::columnOf(std::int32_t id) const {
  return columns_ > 0 ? placeBitsOf(id) % columns_ : placeBitsOf(id);
}

std::int32_t Board::rowOf(std::int32_t id) const { return columns_ > 0 ? placeBitsOf(id) / columns_ : 0; }

std::optional<cv::Point3d> Board::placeOf(std::int32_t id) const {
  if (is_frame_) {
    const auto from_one = static_cast<std::size_t>(id);
    return id >= 1 && from_one <= places_.size() ? std::optional(places_[from_one - 1]) : std::nullopt;
  }
  if (id < 0 || rowOf(id) >= rows_) return std::nullopt;
  const auto place = static_cast<std::size_t>(placeBitsOf(id));
  if (place < places_.size()) return places_[place];
  return cv::Point3d(columnOf(id) * step_x_, rowOf(id) * step_y_, 0.0);
}

void Board::take(const std::vector<cv::Point3d>& places) {
  const auto dots = static_cast<std::size_t>(rows_) * static_cast<std::size_t>(columns_);
  if (!is_frame_ && places.size() == dots) places_ = places;
}

}  // namespace polarline
