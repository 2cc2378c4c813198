#include "store/results/KeyedReader.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <string>

namespace {

using polarline::results::JsonFault;
using polarline::results::KeyedReader;

struct Taken {
  std::string name;
  double size = -1.0;
  std::int64_t count = -1;
  std::optional<std::int64_t> pair;
  bool holds = false;
};

Taken take(const std::string& text) {
  Taken taken;
  KeyedReader json(text);
  json.members("set.", {{"name", json.into(taken.name)},
                        {"size", json.into(taken.size)},
                        {"count", json.into(taken.count), KeyedReader::Need::kMayMiss},
                        {"pair", json.into(taken.pair), KeyedReader::Need::kMayMiss},
                        {"holds", json.into(taken.holds), KeyedReader::Need::kMayMiss}});
  json.end();
  return taken;
}

std::string faultOf(const std::string& text) {
  try {
    take(text);
  } catch (const JsonFault& fault) {
    const std::string what = fault.what();
    return what.substr(what.find(": ") + 2);
  }
  return "";
}

TEST(KeyedReaderMembers, AreTakenInWhateverOrderAndOthersPassedOver) {
  const Taken taken = take(
      R"({"new": [{"name": "no"}], "pair": 3, "size": 0.5, "count": 7, "holds": true, "name": "A", "last": null})");
  EXPECT_EQ(taken.name, "A");
  EXPECT_EQ(taken.size, 0.5);
  EXPECT_EQ(taken.count, 7);
  EXPECT_EQ(taken.pair, 3);
  EXPECT_TRUE(taken.holds);
}

TEST(KeyedReaderMembers, MayBeMissingWhereThatIsSaid) {
  const Taken taken = take(R"({"name": "A", "size": null, "pair": null})");
  EXPECT_TRUE(std::isnan(taken.size));
  EXPECT_EQ(taken.count, -1);
  EXPECT_EQ(taken.pair, std::nullopt);
}

TEST(KeyedReaderMembers, ThatAreMissingOrStandTwiceAreNamed) {
  EXPECT_EQ(faultOf(R"({"name": "A"})"), "set.size is missing");
  EXPECT_EQ(faultOf(R"({})"), "set.name is missing");
  EXPECT_EQ(faultOf(R"({"name": "A", "size": 1, "name": "B"})"), "set.name stands there twice");
}

/// What is no whole number, or one that a double may have lost.
class KeyedReaderWhole : public ::testing::TestWithParam<const char*> {};

TEST_P(KeyedReaderWhole, IsWanted) {
  EXPECT_EQ(faultOf(std::string(R"({"name": "A", "size": 1, "count": )") + GetParam() + "}"),
            "a whole number was wanted");
}

INSTANTIATE_TEST_SUITE_P(Others, KeyedReaderWhole, ::testing::Values("0.5", "1e300", "9007199254740994", "null"));

TEST(KeyedReaderNumbers, AreWholeUpToThoseThatADoubleTellsApart) {
  EXPECT_EQ(take(R"({"name": "", "size": 1, "count": 9007199254740992})").count, 9007199254740992);
  EXPECT_EQ(take(R"({"name": "", "size": 1, "count": -3.0})").count, -3);
}

TEST(KeyedReaderWords, AreOneOfThoseThatStandThere) {
  KeyedReader json(R"(["pass", "maybe"])");
  int seen = 0;
  const auto walk = [&] {
    json.array([&] {
      EXPECT_EQ(json.oneOf({"pass", "fail"}), "pass");
      ++seen;
    });
  };
  EXPECT_THROW(walk(), JsonFault);
  EXPECT_EQ(seen, 1);
}

}  // namespace
