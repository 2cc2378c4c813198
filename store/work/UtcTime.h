#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace polarline {

/// A moment as ISO 8601 writes it (`2026-11-22`, `2026-11-22T08:15`, `2026-11-22 08:15:30.5+01:00`, `...Z`; UTC without
/// an offset) as UTC in whole seconds, `2026-11-22T07:15:30Z`, so that texts sort as times do. None for another text.
std::optional<std::string> utcTime(std::string_view text);

/// Seconds since 1970-01-01 of a time as `utcTime` writes it.
long long secondsOf(std::string_view utc);

/// Days since 1970-01-01 (Gregorian) and back; months and days from 1.
long long daysFromDate(int year, int month, int day);
struct Date {
  int year = 1970, month = 1, day = 1;
};
Date dateFromDays(long long days);

}  // namespace polarline
