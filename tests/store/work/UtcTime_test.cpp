#include "store/work/UtcTime.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using polarline::dateFromDays;
using polarline::daysFromDate;
using polarline::secondsOf;
using polarline::utcTime;

struct Written {
  const char* text;
  const char* utc;  ///< Empty: no time.
};

class UtcTimeOf : public ::testing::TestWithParam<Written> {};

TEST_P(UtcTimeOf, IsAsIso8601Says) {
  EXPECT_EQ(utcTime(GetParam().text).value_or(""), GetParam().utc) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(Times, UtcTimeOf,
                         ::testing::Values(Written{"2026-11-22T08:15:30Z", "2026-11-22T08:15:30Z"},
                                           Written{"2026-11-22", "2026-11-22T00:00:00Z"},
                                           Written{"2026-11-22T08:15", "2026-11-22T08:15:00Z"},
                                           Written{"2026-11-22 08:15:30.75", "2026-11-22T08:15:30Z"},
                                           Written{"2026-11-22T00:30:00+01:00", "2026-11-21T23:30:00Z"},
                                           Written{"2026-12-31T23:30:00-0145", "2027-01-01T01:15:00Z"},
                                           Written{"2026-11-22T08:15:30+02", "2026-11-22T06:15:30Z"},
                                           Written{"2024-02-29T12:00:00Z", "2024-02-29T12:00:00Z"},
                                           Written{"2026-02-29T12:00:00Z", ""}, Written{"2026-04-31", ""},
                                           Written{"2026-13-01", ""}, Written{"2026-11-22T24:00", ""},
                                           Written{"2026-11-22T8:15", ""}, Written{"", ""}, Written{"yesterday", ""},
                                           Written{"2026-11-22T08:15:30Zx", ""}, Written{"2026-11-22T08:15:30+", ""},
                                           Written{"2026-11-22T08:15:30.", ""}, Written{"1763799330", ""}));

TEST(UtcTime, CountsSecondsAsTheClockDoes) {
  EXPECT_EQ(secondsOf("1970-01-01T00:00:00Z"), 0);
  EXPECT_EQ(secondsOf("2001-09-09T01:46:40Z"), 1000000000);  // The known round number.
  EXPECT_EQ(secondsOf("1969-12-31T23:59:59Z"), -1);
}

TEST(UtcTime, CountsDaysThereAndBack) {
  EXPECT_EQ(daysFromDate(1970, 1, 1), 0);
  EXPECT_EQ(daysFromDate(2000, 3, 1), 11017);
  for (const long long days : {-1LL, 0LL, 59LL, 11016LL, 20000LL}) {
    const auto date = dateFromDays(days);
    EXPECT_EQ(daysFromDate(date.year, date.month, date.day), days);
  }
}

}  // namespace
