#include "report/read/DotsAside.h"

#include <gtest/gtest.h>

#include <functional>

#include "polarline/errors.h"

namespace polarline {
namespace {

Json parsed(const char* text, DotsAside& dots) { return Json::parse(text, std::ref(dots)); }

TEST(DotsAsideTake, ThePointsOfPairsAndTheirRefinedForms) {
  DotsAside dots;
  const Json document = parsed(
      R"({"pairs": [{"points": {"id": [1, 2], "dy": [0.5, null]}, "refined": {"points": {"id": [3]}}},
                    {"points": {"id": [4]}}]})",
      dots);
  EXPECT_TRUE(document["pairs"][0]["points"].is_binary());
  const DotLists first = dots.take(Place(document["pairs"][0], "a.json"));
  EXPECT_EQ(first.id, (std::vector<std::int32_t>{1, 2}));
  EXPECT_EQ(first.dy.at(0), 0.5);
  EXPECT_EQ(dots.take(Place(document["pairs"][0]["refined"], "a.json")).id, std::vector<std::int32_t>{3});
  EXPECT_EQ(dots.take(Place(document["pairs"][1], "a.json")).id, std::vector<std::int32_t>{4});
}

TEST(DotsAsideTake, NothingElseOfThatName) {
  const char* const text = R"({"points": {"id": [1]}, "board": {"points": {"id": [1]}}, "pairs": [{"quality":
      {"points": {"id": [1]}}, "figures": {"refined": {"points": {"id": [1]}}}}]})";
  DotsAside dots;
  EXPECT_EQ(parsed(text, dots), Json::parse(text));
}

TEST(DotsAsideSpoiled, PointsStayAndAreRefusedWithTheirPlace) {
  DotsAside dots;
  const Json document = parsed(R"({"pairs": [{"points": {"id": [1], "dy": [1, 2]}}]})", dots);
  EXPECT_TRUE(document["pairs"][0]["points"].is_object());
  EXPECT_THROW(dots.take(Place(document["pairs"][0], "a.json")), InputError);
}

TEST(DotsAsideSpoiled, APairWithoutPointsIsRefused) {
  DotsAside dots;
  const Json document = parsed(R"({"pairs": [{"points": 0}, {}]})", dots);
  EXPECT_THROW(dots.take(Place(document["pairs"][0], "a.json")), InputError);
  EXPECT_THROW(dots.take(Place(document["pairs"][1], "a.json")), InputError);
}

}  // namespace
}  // namespace polarline
