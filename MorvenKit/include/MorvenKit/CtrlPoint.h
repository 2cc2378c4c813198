#pragma once

#include <cstdint>

#include "MorvenKit/EdgePoints.h"

namespace kestrune::morvenkit {

/// What a contour was recognised as.
enum PointClass : std::uint8_t {
  kDot = 0,         ///< Plain grid dot.
  kRing = 1,        ///< Ring with a hollow centre.
  kSolidRing = 4,   ///< Ring with a solid core.
  kBigDot = 6,      ///< Big black dot of board type 3.
  kUnknown = 254,   ///< Looks like a marker, but the transitions on its rays (or its area) fit none.
  kRejected = 255,  ///< Fits no class; also the value before classification.
};

/// A detected point of the board. Pixels, x the column, y the row, pixel centres on integers.
template <typename T>
struct CtrlPoint {
  CtrlPoint() = default;
  CtrlPoint(const CtrlPoint&) = default;
  CtrlPoint(CtrlPoint&&) noexcept = default;
  CtrlPoint& operator=(const CtrlPoint&) = default;
  CtrlPoint& operator=(CtrlPoint&&) noexcept = default;
  virtual ~CtrlPoint() = default;

  T x = 0;                               ///< Column of the centre.
  T y = 0;                               ///< Row of the centre.
  std::int32_t id = -1;                  ///< Low 16 bits: row * columns + column; bits 16 to 23: layer; -1 at first.
  EdgePoints edge_points;                ///< Sub-pixel, in the scale that the detector worked in.
  std::uint8_t flag = 0;                 ///< Always 0. Not read: kept as a part of the record.
  std::uint8_t point_class = kRejected;  ///< A `PointClass`.
};

}  // namespace kestrune::morvenkit
