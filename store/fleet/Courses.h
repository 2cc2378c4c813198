#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "store/fleet/Cells.h"
#include "store/fleet/FleetSets.h"
#include "store/fleet/MeasuredValues.h"

namespace polarline::fleet {

/// The numbers of a group in the order of time, so many sets in a row made one point.
struct FigureCourse {
  std::size_t group = 0;
  std::size_t each = 1;                     ///< Sets of a point.
  std::size_t waiting = 0;                  ///< Sets behind the last full point.
  std::vector<std::int64_t> begins;         ///< Minutes of a point's first set, since the first day.
  std::vector<std::int64_t> minutes;        ///< Of its last set.
  std::vector<std::vector<double>> values;  ///< By measure, then point; not a number where none of its sets has one.
};

/// The courses of all groups that fill a point; sets that ended in an error are left out.
/// @param left_out How many stations-and-models there was no room for.
std::vector<FigureCourse> coursesOf(const FleetSets& sets, const Cells& cells, const MeasuredValues& values,
                                    std::size_t& left_out);

}  // namespace polarline::fleet
