#include "store/fleet/Metadata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "store/fleet/FleetRows.h"

namespace {

using namespace polarline::fleet;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Texts = std::vector<std::optional<std::string>>;

struct MetadataRead : ::testing::Test {
  FleetRows rows;
  int days = 0;

  void set(const std::vector<std::pair<std::string, std::string>>& metadata) {
    const std::string minutes = std::to_string(10 + days++);
    const auto number = rows.set("2026-01-05T06:" + minutes + ":00Z");
    for (const auto& [key, value] : metadata) rows.metadata(number, key, value);
  }
  FleetMetadata read() const { return readFleetMetadata(rows.database(), FleetSets(rows.database())); }
  static std::vector<std::string> keysOf(const FleetMetadata& metadata) {
    std::vector<std::string> keys;
    for (const MetadataColumn& column : metadata.columns) keys.push_back(column.key);
    return keys;
  }
  static std::vector<std::string> othersOf(const FleetMetadata& metadata) {
    std::vector<std::string> keys;
    for (const OtherKey& other : metadata.others) keys.push_back(other.key + " " + std::to_string(other.values));
    return keys;
  }
};

TEST_F(MetadataRead, StationAndModelStandInNaturalOrderAndWhatSaysNothingLast) {
  set({{"station", "10"}, {"model", "K2"}});
  set({{"station", "2"}, {"model", "K2"}});
  set({{"station", ""}, {"model", "K2"}});
  set({{"station", "B"}, {"model", "K2"}});
  const FleetMetadata metadata = read();
  EXPECT_EQ(metadata.columns[0].values, (Texts{"2", "10", "B", std::nullopt}));
  EXPECT_THAT(metadata.columns[0].of_set, ElementsAre(1, 0, 3, 2));
  EXPECT_EQ(metadata.columns[1].values, (Texts{"K2"}));
  EXPECT_THAT(metadata.columns[1].of_set, ElementsAre(0, 0, 0, 0));
}

TEST_F(MetadataRead, StationAndModelAreThereThoughNoSetHasThem) {
  set({{"serial", "A"}});
  const FleetMetadata metadata = read();
  EXPECT_THAT(keysOf(metadata), ElementsAre("station", "model"));
  EXPECT_EQ(metadata.columns[0].values, (Texts{std::nullopt}));
  EXPECT_THAT(metadata.columns[0].of_set, ElementsAre(0));
  EXPECT_THAT(metadata.others, IsEmpty());
}

TEST_F(MetadataRead, FurtherKeysAreThreeAtMostThoseOfTheFewestValuesFirst) {
  for (const int k : {0, 1, 2, 3})
    set({{"four", std::to_string(k)},
         {"three", std::to_string(k % 3)},
         {"b_two", std::to_string(k % 2)},
         {"a_two", std::to_string(k / 2)},
         {"one", "same"},
         {"time", std::to_string(k)},
         {"serial", std::to_string(k)}});
  const FleetMetadata metadata = read();
  EXPECT_THAT(keysOf(metadata), ElementsAre("station", "model", "a_two", "b_two", "three"));
  EXPECT_THAT(othersOf(metadata), ElementsAre("one 1", "four 4"));
}

TEST_F(MetadataRead, SayingNothingIsAValueOfAKey) {
  set({{"shift", "late"}});
  set({});
  const FleetMetadata metadata = read();
  ASSERT_EQ(metadata.columns.size(), 3U);
  EXPECT_EQ(metadata.columns[2].values, (Texts{"late", std::nullopt}));
}

/// Values of a key, and whether one may filter by it.
class MetadataValues : public MetadataRead, public ::testing::WithParamInterface<std::pair<int, bool>> {};

TEST_P(MetadataValues, AreTwoTo24ForAFilter) {
  for (int k = 0; k < GetParam().first; ++k) set({{"operator", std::to_string(k)}});
  EXPECT_EQ(keysOf(read()).size(), GetParam().second ? 3U : 2U);
}

INSTANTIATE_TEST_SUITE_P(Counts, MetadataValues,
                         ::testing::Values(std::pair(1, false), std::pair(2, true), std::pair(24, true),
                                           std::pair(25, false)));

}  // namespace
