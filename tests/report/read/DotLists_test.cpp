#include "report/read/DotLists.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "polarline/errors.h"

namespace polarline {
namespace {

DotLists read(const char* text) {
  const Json json = Json::parse(text);
  return readDots(Place(json, "r.json"));
}

std::string problemOf(const char* text) {
  try {
    read(text);
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(DotListsOf, AreTheDocuments) {
  const DotLists dots = read(R"({"id": [3, 65540], "left_x": [0.1, null], "dy": [], "z": [1, 2]})");
  EXPECT_EQ(dots.id, (std::vector<std::int32_t>{3, 65540}));
  EXPECT_EQ(dots.left_x[0], 0.1);
  EXPECT_TRUE(std::isnan(dots.left_x[1]));
  EXPECT_EQ(dots.z, (std::vector<double>{1.0, 2.0}));
  EXPECT_TRUE(dots.dy.empty());
  EXPECT_TRUE(dots.residual.empty());
}

TEST(DotListsOf, OtherLengthsAreRefused) {
  EXPECT_EQ(problemOf(R"({"id": [3, 4], "dy": [0.1]})"), "r.json: dy: found 1 entries, wanted 2 as in id");
  EXPECT_EQ(problemOf(R"({"id": [], "x": [0.1]})"), "r.json: x: found 1 entries, wanted 0 as in id");
}

TEST(DotListsRefined, HaveTheirErrorsAndStates) {
  const DotLists dots = read(
      R"({"id": [3, 4], "left_sd_x": [0.1, null], "right_sd_y": [0.2, 0.3], "left_state": ["refined", "clipped"]})");
  EXPECT_EQ(dots.left_sd_x[0], 0.1);
  EXPECT_TRUE(std::isnan(dots.left_sd_x[1]));
  EXPECT_EQ(dots.right_sd_y, (std::vector<double>{0.2, 0.3}));
  EXPECT_EQ(dots.left_state, (std::vector<std::string>{"refined", "clipped"}));
  EXPECT_EQ(problemOf(R"({"id": [3, 4], "left_state": ["refined"]})"),
            "r.json: left_state: found 1 entries, wanted 2 as in id");
  EXPECT_NE(problemOf(R"({"id": [3], "right_state": [1]})"), "");
}

TEST(DotListsIds, AreWholeNumbers) {
  for (const char* id : {"1.5", "null", "3e9", "-3e9"}) {
    EXPECT_EQ(problemOf((std::string("{\"id\": [0, ") + id + "]}").c_str()),
              "r.json: id[1]: is no whole number of 32 bits");
  }
  EXPECT_EQ(read(R"({"id": [-1, 2147483647]})").id, (std::vector<std::int32_t>{-1, 2147483647}));
}

}  // namespace
}  // namespace polarline
