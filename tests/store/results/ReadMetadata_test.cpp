#include "store/results/ReadMetadata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "store/results/JsonCursor.h"

namespace {

using polarline::results::JsonFault;
using polarline::results::readMetadata;
using ::testing::ElementsAre;
using ::testing::Pair;

TEST(ReadMetadata, TakesKeysAscendingAndTheSettings) {
  const auto metadata =
      readMetadata(R"({"metadata": {"station": "3", "serial": "A-1", "é": ""}, "settings": "5e", "new": [1]})");
  EXPECT_THAT(metadata.values, ElementsAre(Pair("serial", "A-1"), Pair("station", "3"), Pair("é", "")));
  EXPECT_EQ(metadata.settings, "5e");
  EXPECT_EQ(metadata.value("station"), "3");
  EXPECT_EQ(metadata.value("model"), "");
}

TEST(ReadMetadata, NeedsNoSettings) { EXPECT_EQ(readMetadata(R"({"metadata": {}})").settings, ""); }

TEST(ReadMetadata, RefusesWhatIsNoText) {
  for (const char* text :
       {"", "{}", "[]", R"({"metadata": {"station": 3}})", R"({"metadata": []})", R"({"metadata": {}} x)"})
    EXPECT_THROW(readMetadata(text), JsonFault) << text;
}

}  // namespace
