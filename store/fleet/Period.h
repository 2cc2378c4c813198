#pragma once

#include <cstdint>

namespace polarline::fleet {

/// How long the time of a cell is.
enum class Period : std::uint8_t { kDay, kWeek, kMonth, kYear };

/// "day", "week", "month" or "year".
const char* nameOf(Period period);

/// The day of a moment: days since 1970-01-01, UTC.
std::int64_t dayOf(std::int64_t seconds);

/// The first day of the period that a day lies in; a week begins on Monday.
std::int64_t firstDayOf(Period period, std::int64_t day);

}  // namespace polarline::fleet
