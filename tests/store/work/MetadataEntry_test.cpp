#include "store/work/MetadataEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/errors.h"

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
  for (const char* time :
       {"2026-03-01", "2026-03-01T22:15", "2026-03-01T22:15:30", "2026-03-01T22:15:30Z",
        "2026-03-01T22:15:30.125+01:00", "2026-03-01T22:15-0930", "2026-03-01 22:15:00", "2026-12-31T23:59:59+02"})
    EXPECT_TRUE(isTaken(std::string("time=") + time)) << time;
  for (const char* time : {"", "22:15", "1.3.2026", "2026-13-01", "2026-00-01", "2026-03-32", "2026-03-01T24:00",
                           "2026-03-01T22:60", "2026-03-01T22", "2026-03-01T22:15:00 UTC"})
    EXPECT_FALSE(isTaken(std::string("time=") + time)) << time;
}

TEST(MetadataEntry, TakesAnyOtherKeyAsItIs) {
  std::vector<std::pair<std::string, std::string>> metadata;
  addMetadata("operator=M\xC3\xBCller, 2nd shift", "", metadata);
  EXPECT_EQ(metadata.at(0).first, "operator");
  EXPECT_EQ(metadata.at(0).second, "M\xC3\xBCller, 2nd shift");
}

}  // namespace
}  // namespace polarline
