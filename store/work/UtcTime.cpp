#include "store/work/UtcTime.h"

#include <fmt/format.h>

#include <chrono>
#include <cstddef>

namespace polarline {
namespace {

constexpr long long kSecondsOfDay = 86400;

/// Takes the pieces of a time from the front of a text.
class TimeText {
 public:
  explicit TimeText(std::string_view text) : rest_(text) {}

  bool take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }
  /// A number of exactly so many digits within bounds.
  bool number(std::size_t digits, int least, int most, int& value) {
    if (rest_.size() < digits) return false;
    value = 0;
    for (const char c : rest_.substr(0, digits)) {
      if (c < '0' || c > '9') return false;
      value = 10 * value + (c - '0');
    }
    rest_.remove_prefix(digits);
    return value >= least && value <= most;
  }
  void skipFraction() {
    if (rest_.size() < 2 || (rest_.front() != '.' && rest_.front() != ',') || rest_[1] < '0' || rest_[1] > '9') return;
    rest_.remove_prefix(1);
    while (!rest_.empty() && rest_.front() >= '0' && rest_.front() <= '9') rest_.remove_prefix(1);
  }
  bool isEnd() const { return rest_.empty(); }

 private:
  std::string_view rest_;
};

bool takeDate(TimeText& text, long long& days) {
  int year = 0, month = 0, day = 0;
  if (!text.number(4, 1, 9999, year) || !text.take('-') || !text.number(2, 1, 12, month) || !text.take('-') ||
      !text.number(2, 1, 31, day))
    return false;
  days = daysFromDate(year, month, day);
  return dateFromDays(days).month == month;
}

bool takeClock(TimeText& text, long long& seconds) {
  int hour = 0, minute = 0, second = 0;
  if (!text.number(2, 0, 23, hour) || !text.take(':') || !text.number(2, 0, 59, minute)) return false;
  if (text.take(':')) {
    if (!text.number(2, 0, 60, second)) return false;
    text.skipFraction();
  }
  seconds = 3600LL * hour + 60LL * minute + second;
  return true;
}

/// Of a time's end: none, Z, +HH, +HH:MM or +HHMM.
bool takeOffset(TimeText& text, long long& seconds) {
  seconds = 0;
  if (text.isEnd() || text.take('Z') || text.take('z')) return true;
  const bool is_west = text.take('-');
  int hours = 0, minutes = 0;
  if ((!is_west && !text.take('+')) || !text.number(2, 0, 23, hours)) return false;
  const bool has_minutes = text.take(':') || !text.isEnd();
  if (has_minutes && !text.number(2, 0, 59, minutes)) return false;
  seconds = (is_west ? -1 : 1) * (3600LL * hours + 60LL * minutes);
  return true;
}

std::string written(long long seconds) {
  long long days = seconds / kSecondsOfDay;
  if (seconds % kSecondsOfDay < 0) --days;
  const long long of_day = seconds - days * kSecondsOfDay;
  const Date date = dateFromDays(days);
  return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", date.year, date.month, date.day, of_day / 3600,
                     of_day / 60 % 60, of_day % 60);
}

}  // namespace

long long daysFromDate(int year, int month, int day) {
  namespace ch = std::chrono;
  const ch::year_month_day date{ch::year{year}, ch::month{static_cast<unsigned>(month)},
                                ch::day{static_cast<unsigned>(day)}};
  return ch::sys_days{date}.time_since_epoch().count();
}

Date dateFromDays(long long days) {
  namespace ch = std::chrono;
  const ch::year_month_day date{ch::sys_days{ch::days{days}}};
  return {int{date.year()}, static_cast<int>(unsigned{date.month()}), static_cast<int>(unsigned{date.day()})};
}

std::optional<std::string> utcTime(std::string_view text) {
  TimeText rest(text);
  long long days = 0, of_day = 0, offset = 0;
  if (!takeDate(rest, days)) return std::nullopt;
  if (!rest.isEnd()) {
    if (!rest.take('T') && !rest.take('t') && !rest.take(' ')) return std::nullopt;
    if (!takeClock(rest, of_day) || !takeOffset(rest, offset)) return std::nullopt;
  }
  if (!rest.isEnd()) return std::nullopt;
  const long long seconds = days * kSecondsOfDay + of_day - offset;
  const int year = dateFromDays(seconds / kSecondsOfDay).year;
  if (year < 1 || year > 9998) return std::nullopt;  // Four digits, whatever the offset.
  return written(seconds);
}

long long secondsOf(std::string_view utc) {
  TimeText rest(utc);
  long long days = 0, of_day = 0;
  if (!takeDate(rest, days) || !rest.take('T') || !takeClock(rest, of_day)) return 0;
  return days * kSecondsOfDay + of_day;
}

}  // namespace polarline
