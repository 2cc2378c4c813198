#pragma once

#include <cstdint>

namespace kestrune::morvenkit {

/// What the classification of a contour says. Statuses 1, 3 and 5 exist in the table of classes only.
enum ContourStatus : int {
  kStatusUnknown = -2,  ///< Looks like a marker, but fits none.
  kStatusLost = -1,
  kStatusDot = 0,
  kStatusRing = 2,
  kStatusSolidRing = 4,
  kStatusBigDot = 6,
};

/// The `PointClass` of a status: a table for 0 to 6, `kUnknown` for -2, `kRejected` for any other.
std::uint8_t classOfStatus(int status);

}  // namespace kestrune::morvenkit
