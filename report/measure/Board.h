#pragma once

#include <cstdint>
#include <opencv2/core.hpp>
#include <optional>
#include <vector>

#include "report/read/Json.h"

namespace polarline {

/// The board of a check, or the fixed points of a frame run: where each dot is on it.
class Board {
 public:
  /// @param document A document of a check that was looked through.
  explicit Board(const Json& document);

  /// The points of a frame stand in no rows and columns.
  bool hasGrid() const { return !is_frame_; }
  std::int32_t columnOf(std::int32_t id) const;
  std::int32_t rowOf(std::int32_t id) const;
  /// The true place, board units; none for an id that the board has not.
  std::optional<cv::Point3d> placeOf(std::int32_t id) const;
  /// Places that were measured, by id, in place of the ideal grid. Of another number than the board's dots they are not
  /// taken: the library takes none then.
  void take(const std::vector<cv::Point3d>& places);

 private:
  std::int32_t rows_ = 0, columns_ = 0;
  double step_x_ = 0.0, step_y_ = 0.0;
  bool is_frame_ = false;  ///< Its ids begin with 1, and it has no rows.
  std::vector<cv::Point3d> places_;
};

}  // namespace polarline
