#include "store/fleet/Period.h"

#include <gtest/gtest.h>

#include "store/work/UtcTime.h"

namespace {

using polarline::daysFromDate;
using polarline::fleet::dayOf;
using polarline::fleet::firstDayOf;
using polarline::fleet::Period;

TEST(Period, OfAMomentBeginsWithItsDay) {
  EXPECT_EQ(dayOf(0), 0);
  EXPECT_EQ(dayOf(86399), 0);
  EXPECT_EQ(dayOf(86400), 1);
  EXPECT_EQ(dayOf(-1), -1);
  EXPECT_EQ(dayOf(-86400), -1);
}

TEST(Period, BeginsWhereTheCalendarSays) {
  const auto sunday = daysFromDate(2026, 11, 22);  // A Sunday.
  EXPECT_EQ(firstDayOf(Period::kDay, sunday), sunday);
  EXPECT_EQ(firstDayOf(Period::kWeek, sunday), daysFromDate(2026, 11, 16));
  EXPECT_EQ(firstDayOf(Period::kWeek, sunday + 1), sunday + 1);
  EXPECT_EQ(firstDayOf(Period::kMonth, sunday), daysFromDate(2026, 11, 1));
  EXPECT_EQ(firstDayOf(Period::kYear, sunday), daysFromDate(2026, 1, 1));
  EXPECT_EQ(firstDayOf(Period::kWeek, -4), -10);  // Sunday, 1969-12-28: the week of the 22nd.
}

}  // namespace
