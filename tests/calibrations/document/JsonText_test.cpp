#include "calibrations/document/JsonText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/Texts.h"

namespace {

using calibrations::valueOfJson;
using testing::HasSubstr;

std::string refused(const std::string& text) { return refusedBy(valueOfJson, text); }

TEST(JsonText, KeepsNumbersAsTheyAreWritten) {
  EXPECT_EQ(line(valueOfJson(
                R"({"a": [1, -2, 0.10, 1e-05, 18446744073709551615], "b": {"c": null, "d": true, "e": "x"}})", "file")),
            "{a=[1 -2 0.10 1e-05 18446744073709551615] b={c=~ d=true e=x}}");
}

TEST(JsonText, IsRefusedWhereItIsNoJson) {
  EXPECT_THAT(refused("{\"a\": 1"), HasSubstr("file: is no JSON: parse error at line 1, column 8: "));
  EXPECT_THAT(refused("{\"a\": NaN}"), HasSubstr("file: is no JSON: parse error at line 1"));
  EXPECT_THAT(refused("{\"a\": 1e999}"), HasSubstr("file: is no JSON: number overflow"));
  EXPECT_THAT(refused("{\"a\": \"\xff\"}"), HasSubstr("file: is no JSON: parse error"));
}

TEST(JsonText, IsRefusedWhereItIsATrap) {
  EXPECT_EQ(refused("{\"a\": 1, \"a\": 2}"), "file: has the key 'a' twice, which is not read");
  EXPECT_EQ(refused(std::string(100000, '[')), "file: has more than 32 levels, which is not read");
}

}  // namespace
