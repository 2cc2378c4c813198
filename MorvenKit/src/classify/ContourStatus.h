#pragma once

#include <cstdint>

namespace kestrune::morvenkit {

/// What the classification of a contour found. The numbers are those of the table of classes; nothing gives 1, 3 or 5.
enum ContourStatus : int {
  kStatusUnknown = -2,  ///< Looks like a marker, but fits none.
  kStatusLost = -1,     ///< Looks like nothing known.
  kStatusDot = 0,
  kStatusRing = 2,
  kStatusSolidRing = 4,
  kStatusBigDot = 6,
};

/// Status of an area against the mean area of all blobs: a big dot above 1.2 times the mean, a dot between 0.2 and 1.2
/// times, limits excluded. Unknown otherwise, also for a mean of NaN.
ContourStatus statusOfArea(double area, float mean);

/// The `PointClass` of a status: a table for 0 to 6, `kUnknown` for -2, `kRejected` for any other.
std::uint8_t classOfStatus(int status);

}  // namespace kestrune::morvenkit
