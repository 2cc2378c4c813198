#include "store/work/MetadataEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "store/work/UtcTime.h"

namespace polarline {
namespace {

bool isTaken(const std::string& entry) {
  std::vector<std::pair<std::string, std::string>> metadata;
  try {
    addMetadata(entry, "", metadata);
  } catch (const InputError&) {
    return false;
  }
  return true;
}

TEST(MetadataEntry, TakesTimesOfTheStandard) {
  for (const char* time : {"2026-03-01", "2026-03-01T22:15", "2026-03-01T22:15:30", "2026-03-01T22:15:30Z",
                           "2026-03-01T22:15:30.125+01:00", "2026-12-31T23:59:60Z", "2026-03-01T22:15-0930",
                           "2026-03-01 22:15:00", "2026-12-31T23:59:59+02"})
    EXPECT_TRUE(isTaken(std::string("time=") + time)) << time;
  for (const char* time :
       {"", "22:15", "1.3.2026", "2026-13-01", "2026-00-01", "2026-03-32", "2026-03-01T24:00", "2026-03-01T22:60",
        "2026-03-01T22", "2026-03-01T22:15:00 UTC", "2026-02-30", "2026-03-01T10:00+99:99", "0000-01-01"})
    EXPECT_FALSE(isTaken(std::string("time=") + time)) << time;
}

/// What a worker takes, the merge must understand: else it puts the set on the day of its check.
TEST(MetadataEntry, TakesExactlyTheTimesThatHaveADay) {
  for (const char* time :
       {"2026-02-28", "2026-02-29", "2024-02-29", "2026-03-01T22:15:60", "9999-12-31", "0001-01-01",
        "2026-03-01T10:00+24:00", "2026-03-01t10:00z", "2026-03-01T10:00,5", "2026-03-01T10:00:00,5"})
    EXPECT_EQ(isTaken(std::string("time=") + time), utcTime(time).has_value()) << time;
}

TEST(MetadataEntry, TakesAnyOtherKeyAsItIs) {
  std::vector<std::pair<std::string, std::string>> metadata;
  addMetadata("operator=M\xC3\xBCller, 2nd shift", "", metadata);
  EXPECT_EQ(metadata.at(0).first, "operator");
  EXPECT_EQ(metadata.at(0).second, "M\xC3\xBCller, 2nd shift");
}

}  // namespace
}  // namespace polarline
