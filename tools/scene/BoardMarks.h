#pragma once

#include <array>
#include <vector>

#include "tools/scene/Board.h"
#include "tools/scene/Vectors.h"

namespace scene {

/// What stands at one place of the grid.
struct Mark {
  int id = 0;  ///< row x cols + column.
  int column = 0;
  int row = 0;
  bool marker = false;  ///< One of the rings, the solid ring or the big dots.
  bool drawn = true;    ///< False beside a big ring, whose ink would run into it.
  MarkRadii radii;      ///< In steps.
};

/// A grid place and the marker that stands there.
struct Marker {
  int column = 0;
  int row = 0;
  MarkRadii radii;
};

/// The markers. Ring boards: the four rings from the upper left one clockwise, then the solid ring. Big dots: lower
/// left, lower right, upper right and the one a column right of the upper left corner.
std::vector<Marker> markersOf(const Board& board);

/// Every place of the grid by id, markers and places left empty included.
std::vector<Mark> marksOf(const Board& board);

/// The centre of a grid place, board frame, millimetres.
Point3 gridPoint(const Board& board, int column, int row);

/// Ids of the places two in from the board's corners: upper left, upper right, lower left, lower right. Precondition:
/// at least three rows and columns.
std::array<int, 4> innerCornerIds(const Board& board);

/// All grid places by id, board frame, millimetres.
std::vector<Point3> boardPoints(const Board& board);

}  // namespace scene
