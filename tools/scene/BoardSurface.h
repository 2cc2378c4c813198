#pragma once

#include <cstddef>
#include <vector>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/Optics.h"

namespace scene {

/// The grey of every point of the board's plane: ink, paper or surround. A grid of cells tells which marks can be near
/// a point.
class BoardSurface {
 public:
  BoardSurface(const Board& board, const Optics& optics);

  /// Grey at a point of the board's plane, millimetres.
  [[nodiscard]] double greyAt(Point2 point_board) const;

  /// Whether no edge of ink or paper comes nearer to the point than `reach` millimetres. May be false without need,
  /// never true wrongly.
  [[nodiscard]] bool uniformWithin(Point2 point_board, double reach) const;

 private:
  /// One piece of ink, radii in millimetres.
  struct Ink {
    Point2 centre;
    double outer, hollow, core;
  };

  [[nodiscard]] const std::vector<std::size_t>& inksNear(Point2 point_board) const;
  [[nodiscard]] double distanceInsidePaper(Point2 point_board) const;
  [[nodiscard]] double surroundAt(Point2 point_board) const;
  void enter(std::size_t ink_index);

  Optics optics_;
  double step_x_, step_y_;
  int cells_x_, cells_y_;
  Point2 paper_low_, paper_high_;
  std::vector<Ink> inks_;
  std::vector<std::vector<std::size_t>> cells_;  ///< One a grid place and one row and column around, row by row.
};

}  // namespace scene
