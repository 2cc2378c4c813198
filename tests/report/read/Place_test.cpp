#include "report/read/Place.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "polarline/errors.h"

namespace polarline {
namespace {

struct Demand {
  const char* json;  ///< The value of "a".
  std::function<void(const Place&)> demand;
  const char* problem;  ///< Empty: it is as wanted.
};

class PlaceDemand : public ::testing::TestWithParam<Demand> {};

TEST_P(PlaceDemand, NamesFileKeyFoundAndWanted) {
  const Json json = Json::parse(std::string("{\"a\": ") + GetParam().json + "}");
  std::string problem;
  try {
    GetParam().demand(Place(json, "r.json"));
  } catch (const InputError& error) {
    problem = error.what();
  }
  EXPECT_EQ(problem, GetParam().problem);
}

const auto kText = [](const Place& place) { place.texts({"a"}); };
const auto kNumber = [](const Place& place) { place.numbers({"a"}); };
const auto kCount = [](const Place& place) { place.counts({"a"}); };
const auto kWhole = [](const Place& place) { static_cast<void>(place.whole("a")); };
const auto kTruth = [](const Place& place) { place.truths({"a"}); };
const auto kFigures = [](const Place& place) { place.figures("a"); };
const auto kTextList = [](const Place& place) { place.textList("a"); };
const auto kNumberList = [](const Place& place) { place.numberList("a"); };
const auto kWord = [](const Place& place) { place.oneOf("a", {"x", "y"}); };
const auto kObjects = [](const Place& place) {
  for (const Place& each : place.objects("a")) each.texts({"b"});
};
const auto kMembers = [](const Place& place) {
  for (const Place& each : place.members("a")) each.numbers({"b"});
};

INSTANTIATE_TEST_SUITE_P(
    All, PlaceDemand,
    ::testing::Values(
        Demand{R"("t")", kText, ""}, Demand{"1", kText, "r.json: a: found 1, wanted a text"},
        Demand{"1.5", kNumber, ""}, Demand{"null", kNumber, ""},
        Demand{R"("t")", kNumber, "r.json: a: found \"t\", wanted a number or null"}, Demand{"2147483647", kCount, ""},
        Demand{"-1", kCount, "r.json: a: found -1, wanted a whole number from 0"},
        Demand{"2147483648", kCount, "r.json: a: found 2147483648, wanted a whole number from 0"},
        Demand{"18446744073709551615", kCount, "r.json: a: found 18446744073709551615, wanted a whole number from 0"},
        Demand{"1.5", kCount, "r.json: a: found 1.5, wanted a whole number from 0"}, Demand{"-3", kWhole, ""},
        Demand{"1e3", kWhole, "r.json: a: found 1000.0, wanted a whole number"}, Demand{"true", kTruth, ""},
        Demand{"0", kTruth, "r.json: a: found 0, wanted true or false"},
        Demand{R"({"f": [1, null], "g": null, "h": 2})", kFigures, ""},
        Demand{R"({"f": ["1"]})", kFigures, "r.json: a.f: found a list, wanted a number, null, or a list of numbers"},
        Demand{R"(["x"])", kTextList, ""}, Demand{"[1]", kTextList, "r.json: a: found a list, wanted a list of texts"},
        Demand{"[1, null]", kNumberList, ""},
        Demand{"{}", kNumberList, "r.json: a: found an object, wanted a list of numbers"}, Demand{R"("y")", kWord, ""},
        Demand{R"("z")", kWord, "r.json: a: found \"z\", wanted 'x' or 'y'"}, Demand{R"([{"b": "t"}])", kObjects, ""},
        Demand{R"([{"b": "t"}, 7])", kObjects, "r.json: a[1]: found 7, wanted an object"},
        Demand{R"([{}])", kObjects, "r.json: a[0].b: found nothing, but a document of a check has this key"},
        Demand{R"({"k": {"b": "t"}})", kMembers, "r.json: a.k.b: found \"t\", wanted a number or null"}));

TEST(PlaceIfAny, IsNoneForNullAndForNothing) {
  const Json json = Json::parse(R"({"a": null, "b": {}})");
  const Place place(json, "r.json");
  EXPECT_FALSE(place.objectIfAny("a"));
  EXPECT_FALSE(place.objectIfAny("c"));
  EXPECT_TRUE(place.objectIfAny("b"));
}

TEST(PlaceRoot, HasToBeAnObject) {
  const Json json = Json::parse("[]");
  EXPECT_THROW(Place(json, "r.json"), InputError);
}

}  // namespace
}  // namespace polarline
