#pragma once

#include <vector>

#include "tools/scene/BoardMarks.h"
#include "tools/scene/Optics.h"

namespace scene {

/// The grey of every point of the board's plane: ink, paper or surround. A grid of cells tells which marks can be near
/// a point.
class BoardSurface {
 public:
  BoardSurface(const Board& board, const Optics& optics);

  /// One piece of ink, radii in millimetres.
  struct Ink {
    Point2 centre;
    double outer, hollow, core;
  };
  using Inks = std::vector<Ink>;

  /// All marks that can hold a point within half a step of this one, millimetres of the board's plane.
  [[nodiscard]] const Inks& inksNear(Point2 point_board) const;

  /// Grey at a point of the board's plane, millimetres. `inks` are those near the point; they serve for many points
  /// close together.
  [[nodiscard]] double greyAmong(const Inks& inks, Point2 point_board) const;

  [[nodiscard]] double greyAt(Point2 point_board) const { return greyAmong(inksNear(point_board), point_board); }

  /// Whether no edge of ink or paper comes nearer to the point than `reach` millimetres. May be false without need,
  /// never true wrongly.
  [[nodiscard]] bool uniformWithin(Point2 point_board, double reach) const;

 private:
  [[nodiscard]] double distanceInsidePaper(Point2 point_board) const;
  [[nodiscard]] double surroundAt(Point2 point_board) const;
  void enter(const Ink& ink);

  Optics optics_;
  double step_x_, step_y_;
  int cells_x_, cells_y_;
  Point2 paper_low_, paper_high_;
  std::vector<Inks> cells_;  ///< One a grid place and one row and column around, row by row.
};

}  // namespace scene
