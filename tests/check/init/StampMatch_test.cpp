#include "check/init/StampMatch.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

init::StampMatch match(const std::vector<std::string>& left, const std::vector<std::string>& right) {
  return init::matchStamps(init::keyReadings(left, right).front());
}

TEST(StampMatch, PartnersDifferByLessThanHalfTheSpacing) {
  const init::StampMatch found = match({"l/100", "l/200", "l/300"}, {"r/149", "r/250", "r/299"});
  // The least spacing is 49 (right), so only 299 is near enough; with 100 the limit would be 50.
  EXPECT_THAT(found.pairs, ElementsAre(Pair(2, 2)));
  EXPECT_EQ(found.spacing, 49U);
  EXPECT_THAT(match({"l/100", "l/200", "l/300"}, {"r/149", "r/250", "r/351"}).pairs, ElementsAre(Pair(0, 0)));
}

TEST(StampMatch, HalfTheSpacingIsTooMuch) {
  EXPECT_THAT(match({"l/100", "l/200"}, {"r/150", "r/250"}).pairs, IsEmpty());
}

TEST(StampMatch, ALostPictureShiftsNobody) {
  const init::StampMatch found = match({"l/1000", "l/1033", "l/1066", "l/1100"}, {"r/1004", "r/1070", "r/1103"});
  EXPECT_THAT(found.pairs, ElementsAre(Pair(0, 0), Pair(2, 1), Pair(3, 2)));
  EXPECT_EQ(found.difference, 4U);
  EXPECT_FALSE(found.long_numbers);
}

TEST(StampMatch, NanosecondsKeepEveryDigit) {
  const init::StampMatch found =
      match({"l/1403636579763555584", "l/1403636579813555456"}, {"r/1403636579763555585", "r/1403636579813555455"});
  EXPECT_THAT(found.pairs, ElementsAre(Pair(0, 0), Pair(1, 1)));
  EXPECT_EQ(found.difference, 1U);
  EXPECT_TRUE(found.long_numbers);
}

TEST(StampMatch, AFractionBelongsToItsSeconds) {
  // 12.99 and 13.01 are 0.02 apart, although their fractions are not.
  const init::StampMatch found = match({"l/12.50", "l/12.99"}, {"r/12.51", "r/13.01"});
  EXPECT_THAT(found.pairs, ElementsAre(Pair(0, 0), Pair(1, 1)));
  EXPECT_EQ(found.difference, 2U);
}

TEST(StampMatch, WhatStandsBeforeTheNumberMustAgree) {
  const init::StampMatch found =
      match({"run1/l/100", "run1/l/200", "run2/l/100"}, {"run1/r/101", "run2/r/201", "run2/r/300"});
  EXPECT_THAT(found.pairs, ElementsAre(Pair(0, 0)));
}

TEST(StampMatch, NothingWithoutASpacingOrANumber) {
  EXPECT_THAT(match({"l/100"}, {"r/101"}).pairs, IsEmpty());
  EXPECT_THAT(match({"la", "lb"}, {"ra", "rb"}).pairs, IsEmpty());
  EXPECT_THAT(match({"l/1", "l/100000000000000000000"}, {"r/1", "r/100000000000000000000"}).pairs, IsEmpty());
}

}  // namespace
