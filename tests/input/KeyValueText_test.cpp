#include "input/KeyValueText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "support/CommaLocale.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(KeyValueTextParsed, SplitsAtTheFirstColon) {
  EXPECT_THAT(parseKeyValueText("path: C:\\data:x"), ElementsAre(Pair("path", "C:\\data:x")));
}

TEST(KeyValueTextParsed, TrimsTheKeysEndAndTheValuesStartOnly) {
  EXPECT_THAT(parseKeyValueText("key \t\r: \t\rvalue \t"), ElementsAre(Pair("key", "value \t")));
  EXPECT_THAT(parseKeyValueText(" key:value"), ElementsAre(Pair(" key", "value")));
}

TEST(KeyValueTextParsed, SkipsEmptyLinesCommentsAndLinesWithoutColon) {
  EXPECT_THAT(parseKeyValueText("\n\n# a: 1\nno colon\n#b:2\na: 3\n"), ElementsAre(Pair("a", "3")));
}

TEST(KeyValueTextParsed, OnlyTheFirstCharacterMakesAComment) {
  EXPECT_THAT(parseKeyValueText(" #a: 1\nb: 2 # two"), ElementsAre(Pair(" #a", "1"), Pair("b", "2 # two")));
}

TEST(KeyValueTextParsed, TheLastOfEqualKeysWins) {
  EXPECT_THAT(parseKeyValueText("a: 1\na : 2"), ElementsAre(Pair("a", "2")));
}

TEST(KeyValueTextParsed, AValueKeepsItsCarriageReturn) {
  EXPECT_THAT(parseKeyValueText("a: 1\r\nb:\r\n"), ElementsAre(Pair("a", "1\r"), Pair("b", "")));
}

TEST(KeyValueTextParsed, AKeyOfBlanksIsTheEmptyKey) {
  EXPECT_THAT(parseKeyValueText(":1"), ElementsAre(Pair("", "1")));
  EXPECT_THAT(parseKeyValueText(" \t:"), ElementsAre(Pair("", "")));
}

TEST(KeyValueTextParsed, NulBytesAreCharacters) {
  EXPECT_THAT(parseKeyValueText(std::string("a\0b: 1", 6)), ElementsAre(Pair(std::string("a\0b", 3), "1")));
}

template <typename T>
T valueOf(const std::string& text, T start) {
  EXPECT_TRUE(lookup({{"key", text}}, "key", start));
  return start;
}

struct IntCase {
  const char* text;
  std::int32_t value;
};

class KeyValueTextLookupInt : public testing::TestWithParam<IntCase> {};

TEST_P(KeyValueTextLookupInt, IsTheExtractionsResult) {
  EXPECT_EQ(valueOf(GetParam().text, std::int32_t{9}), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextLookupInt,
                         testing::Values(IntCase{"1 this", 1}, IntCase{"-12\r", -12}, IntCase{"1.9", 1},
                                         IntCase{"abc", 0}, IntCase{"", 9}, IntCase{" \r", 9}, IntCase{"+5", 5},
                                         IntCase{"0x10", 0}, IntCase{"007", 7}, IntCase{"-", 0},
                                         IntCase{"99999999999", std::numeric_limits<std::int32_t>::max()},
                                         IntCase{"-99999999999", std::numeric_limits<std::int32_t>::min()}));

struct FloatCase {
  const char* text;
  float value;
};

class KeyValueTextLookupFloat : public testing::TestWithParam<FloatCase> {};

TEST_P(KeyValueTextLookupFloat, IsTheExtractionsResult) { EXPECT_EQ(valueOf(GetParam().text, 9.0F), GetParam().value); }

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextLookupFloat,
                         testing::Values(FloatCase{"1.5", 1.5F}, FloatCase{"0.1", 0.1F}, FloatCase{"1e2 mm", 100.0F},
                                         FloatCase{"abc", 0.0F}, FloatCase{"", 9.0F}, FloatCase{"2,5", 2.0F},
                                         FloatCase{"1e99", std::numeric_limits<float>::max()},
                                         FloatCase{"-1e99", -std::numeric_limits<float>::max()}));

struct BoolCase {
  const char* text;
  bool start;
  bool value;
};

class KeyValueTextLookupBool : public testing::TestWithParam<BoolCase> {};

TEST_P(KeyValueTextLookupBool, IsTheExtractionsResult) {
  EXPECT_EQ(valueOf(GetParam().text, GetParam().start), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextLookupBool,
                         testing::Values(BoolCase{"1", false, true}, BoolCase{"0", true, false},
                                         BoolCase{"0 off\r", true, false}, BoolCase{"2", false, true},
                                         BoolCase{"true", true, false}, BoolCase{"", true, true}));

TEST(KeyValueTextLookup, AMissingKeyLeavesEveryDestination) {
  const KeyValueTable table = {{"other", "5"}};
  std::int32_t integer = 1;
  float number = 2.0F;
  bool flag = true;
  std::vector<double> list = {3.0};
  std::vector<std::vector<std::int32_t>> rows = {{4}};
  EXPECT_FALSE(lookup(table, "key", integer));
  EXPECT_FALSE(lookup(table, "key", number));
  EXPECT_FALSE(lookup(table, "key", flag));
  EXPECT_FALSE(lookup(table, "key", list));
  EXPECT_FALSE(lookup(table, "key", rows));
  EXPECT_EQ(integer, 1);
  EXPECT_EQ(number, 2.0F);
  EXPECT_TRUE(flag);
  EXPECT_THAT(list, ElementsAre(3.0));
  EXPECT_THAT(rows, ElementsAre(ElementsAre(4)));
}

TEST(KeyValueTextLookup, NumbersDoNotFollowTheProcessLocale) {
  const CommaLocale comma;
  EXPECT_EQ(valueOf("1.5", 0.0F), 1.5F);
  EXPECT_EQ(valueOf("1.000", std::int32_t{0}), 1);
  EXPECT_THAT(valueOf("[1.5,2.25]", std::vector<double>{}), ElementsAre(1.5, 2.25));
}

struct ListCase {
  const char* text;
  std::vector<double> values;
};

class KeyValueTextLookupList : public testing::TestWithParam<ListCase> {};

TEST_P(KeyValueTextLookupList, ReplacesTheList) {
  EXPECT_THAT(valueOf(GetParam().text, std::vector<double>{7.0}), testing::ElementsAreArray(GetParam().values));
}

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextLookupList,
                         testing::Values(ListCase{"[1.5,-2,3e1]", {1.5, -2, 30}}, ListCase{"0,0,1]", {0, 0, 1}},
                                         ListCase{"[1,2]\r", {1, 2}}, ListCase{"[1] [2]", {1}}, ListCase{"[]", {}},
                                         ListCase{"]", {}}, ListCase{"[1,,2]", {1, 0, 2}}, ListCase{"[1,2,]", {1, 2}},
                                         ListCase{"[,]", {0}}, ListCase{"[a,b,c]", {0, 0, 0}},
                                         ListCase{"[1x,2]", {1, 2}}, ListCase{"[[1,2]]", {0, 2}}));

class KeyValueTextMalformedList : public testing::TestWithParam<const char*> {};

TEST_P(KeyValueTextMalformedList, LeavesTheDestination) {
  const KeyValueTable table = {{"key", GetParam()}};
  std::vector<double> list = {7.0};
  std::vector<std::vector<double>> rows = {{7.0}};
  EXPECT_FALSE(lookup(table, "key", list));
  EXPECT_FALSE(lookup(table, "key", rows));
  EXPECT_THAT(list, ElementsAre(7.0));
  EXPECT_THAT(rows, ElementsAre(ElementsAre(7.0)));
}

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextMalformedList,
                         testing::Values("", " \r", "[", "[1,2", "[1.0, 2.0, 3.0]", "[1,2];", "5"));

TEST(KeyValueTextLookupIntList, ReadsWholeNumbers) {
  EXPECT_THAT(valueOf("[1,2.9,x,-4]", std::vector<std::int32_t>{}), ElementsAre(1, 2, 0, -4));
}

using Rows = std::vector<std::vector<std::int32_t>>;

struct RowsCase {
  const char* text;
  Rows rows;
};

class KeyValueTextLookupRows : public testing::TestWithParam<RowsCase> {};

TEST_P(KeyValueTextLookupRows, ReplacesTheRows) { EXPECT_EQ(valueOf(GetParam().text, Rows{{7}}), GetParam().rows); }

INSTANTIATE_TEST_SUITE_P(Texts, KeyValueTextLookupRows,
                         testing::Values(RowsCase{"[[1,2],[3,4,5]]", {{1, 2}, {3, 4, 5}}}, RowsCase{"[]", {}},
                                         RowsCase{"[[]]", {{}}}, RowsCase{"[[1,2],[]]", {{1, 2}, {}}},
                                         RowsCase{"[1,2]", {{1, 2}}}, RowsCase{"[1,2],[3]]", {{1, 2}, {3}}},
                                         RowsCase{"[[1,,2]]", {{1, 2}}}, RowsCase{"[[1,x]]", {{1, 0}}},
                                         RowsCase{"[[1][2]]", {{1}, {2}}}, RowsCase{"[[1,2]", {{1, 2}}},
                                         RowsCase{"[[1,2]]\r", {{1, 2}}}));

TEST(KeyValueTextLookupDoubleRows, ReadsFractions) {
  EXPECT_THAT(valueOf("[[0.5,-1.25],[3]]", std::vector<std::vector<double>>{}),
              ElementsAre(ElementsAre(0.5, -1.25), ElementsAre(3.0)));
}

}  // namespace
