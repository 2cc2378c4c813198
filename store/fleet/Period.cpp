#include "store/fleet/Period.h"

#include "store/work/UtcTime.h"

namespace polarline::fleet {

const char* nameOf(Period period) {
  switch (period) {
    case Period::kDay:
      return "day";
    case Period::kWeek:
      return "week";
    case Period::kMonth:
      return "month";
    case Period::kYear:
      return "year";
  }
  return "";
}

std::int64_t dayOf(std::int64_t seconds) {
  constexpr std::int64_t kSeconds = 86400;
  return seconds / kSeconds - (seconds % kSeconds < 0 ? 1 : 0);
}

std::int64_t firstDayOf(Period period, std::int64_t day) {
  if (period == Period::kDay) return day;
  if (period == Period::kWeek) {
    constexpr std::int64_t kDaysFromMonday = 3;  // 1970-01-01 was a Thursday.
    const std::int64_t of_week = ((day + kDaysFromMonday) % 7 + 7) % 7;
    return day - of_week;
  }
  const Date date = dateFromDays(day);
  return daysFromDate(date.year, period == Period::kMonth ? date.month : 1, 1);
}

}  // namespace polarline::fleet
