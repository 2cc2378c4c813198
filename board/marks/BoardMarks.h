#pragma once

#include <cstddef>
#include <vector>

#include "polarline/board.h"

namespace boards {

/// A marker and the place of the grid where it stands.
struct Marker {
  polarline::BoardPlace place;
  polarline::BoardMarkRadii radii;
  bool big = false;  ///< The four dots right beside it are not drawn.
};

/// The markers where the detector looks for them, in its order. Ring boards: the solid ring, then the rings clockwise
/// from the upper left one. Big dots: lower left, lower right, upper right, upper left, or the land marks.
std::vector<Marker> markersOf(const polarline::BoardDescription& board);

/// The places right beside a big marker, whether the board has them or not; none for all other markers.
std::vector<polarline::BoardPlace> coveredBy(const Marker& marker);

bool isOn(const polarline::BoardDescription& board, const polarline::BoardPlace& place);

/// The id of a place on the board.
std::size_t idOf(const polarline::BoardDescription& board, const polarline::BoardPlace& place);

/// What stands at a place of the grid.
struct Mark {
  polarline::BoardPlace place;
  bool drawn = true;                ///< False right beside a big marker, whose ink would run into it.
  polarline::BoardMarkRadii radii;  ///< In pitches.
};

/// Every place of the grid by id. Precondition: the markers stand on the board.
std::vector<Mark> marksOf(const polarline::BoardDescription& board);

}  // namespace boards
