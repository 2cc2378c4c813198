#pragma once

namespace scene {

/// Which markers a board carries.
enum class BoardKind {
  kSmallRings,  ///< Board type 2: four rings and a solid ring on the inner rectangle, all of about the dots' size.
  kBigRings,    ///< Board type 2: the same on the outer rectangle, big enough to cover their neighbours.
  kMixedRings,  ///< Board type 2: small rings on the inner rectangle, a big solid ring on the outer one.
  kBigDots      ///< Board type 3: four big dots on the inner rectangle.
};

/// Radii of a mark in steps of the grid: the ink's outline, a hollow in it (0: none) and a core of ink in the hollow
/// (0: none).
struct MarkRadii {
  double outer = 0.0;
  double hollow = 0.0;
  double core = 0.0;
};

/// A planar board: a grid of round dots, x along its columns, y along its rows, z = 0; the first dot is the origin.
/// Lengths in millimetres. Preconditions: at least one row and column, the step positive, the markers' grid places on
/// the board.
struct Board {
  BoardKind kind = BoardKind::kSmallRings;
  int rows = 35;
  int cols = 37;
  double step = 20.0;
  double step_y = 0.0;  ///< Distance of two rows; 0 stands for `step`.
  int inner_width = 9;
  int inner_height = 7;
  int outter_width = 17;
  int outter_height = 13;
  double dot_radius = 0.3;  ///< In steps, as are the radii below.
  MarkRadii small_ring{0.5, 0.33, 0.0};
  MarkRadii small_solid{0.5, 0.33, 0.16};
  MarkRadii big_ring{0.8, 0.55, 0.0};
  MarkRadii big_solid{0.8, 0.55, 0.28};
  MarkRadii big_dot{0.45, 0.0, 0.0};
  double margin = 2.0;  ///< Paper beyond the outermost dots' centres, in steps.
};

/// The distance of two rows.
inline double rowStep(const Board& board) { return board.step_y == 0.0 ? board.step : board.step_y; }

}  // namespace scene
