#include "calibrations/document/Node.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "calibrations/document/YamlText.h"
#include "document/Texts.h"
#include "support/CommaLocale.h"

namespace {

using calibrations::Document;
using calibrations::Node;
using testing::ElementsAre;

Document documentOf(const std::string& text) {
  return {"file", calibrations::Syntax::kYaml, calibrations::valuesOfYaml(text, "file").front()};
}

struct Written {
  const char* text;
  double number;
};

class NodeNumber : public testing::TestWithParam<Written> {};

TEST_P(NodeNumber, IsReadAsItIsWritten) {
  const Document document = documentOf(std::string("a: ") + GetParam().text);
  EXPECT_EQ(Node(document).at("a").number(), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(All, NodeNumber,
                         testing::Values(Written{"1", 1}, Written{"-0.1", -0.1}, Written{"458.", 458},
                                         Written{".5", 0.5}, Written{"+1.5e+02", 150}, Written{"1E-3", 0.001},
                                         Written{"1e-999", 0}, Written{"-1e-999", 0}, Written{"1000000000", 1e9},
                                         Written{"[2]", 2}, Written{"{rows: 1, cols: 1, data: [3]}", 3},
                                         Written{"\"4\"", 4}));

struct NoNumber {
  const char* text;
  const char* problem;
};

class NodeNumberRefused : public testing::TestWithParam<NoNumber> {};

TEST_P(NodeNumberRefused, WithWhatWasFound) {
  const Document document = documentOf(std::string("a: {b: ") + GetParam().text + "}");
  const auto read = [&](const std::string&, const std::string&) { Node(document).at("a").at("b").number(); };
  EXPECT_EQ(refusedBy(read, ""), std::string("file: a/b") + GetParam().problem);
}

INSTANTIATE_TEST_SUITE_P(
    All, NodeNumberRefused,
    testing::Values(NoNumber{"x", ": found 'x'; a number was wanted"},
                    NoNumber{"1x", ": found '1x'; a number was wanted"},
                    NoNumber{"0x10", ": found '0x10'; a number was wanted"},
                    NoNumber{"nan", ": found 'nan'; a finite number was wanted"},
                    NoNumber{".nan", ": found '.nan'; a number was wanted"},
                    NoNumber{"-inf", ": found '-inf'; a finite number was wanted"},
                    NoNumber{"1e999", ": found '1e999'; a finite number was wanted"},
                    NoNumber{"1000000001", ": found '1000000001'; a calibration holds no number beyond 1e9"},
                    NoNumber{"''", ": found ''; a number was wanted"},
                    NoNumber{"[1, 2]", ": found 2 numbers; 1 were wanted"},
                    NoNumber{"[~]", "[0]: found nothing; a number was wanted"}, NoNumber{"{c: 1}", ": has no data"}));

TEST(NodeNumberLocale, DoesNotMatter) {
  const CommaLocale locale;
  const Document document = documentOf("a: 1.5");
  EXPECT_EQ(Node(document).at("a").number(), 1.5);
}

TEST(NodeNumbers, AreOfAnyLayout) {
  for (const char* text : {"[1, 2, 3, 4]", "[[1, 2], [3, 4]]", "{rows: 2, cols: 2, data: [1, 2, 3, 4]}"}) {
    const Document document = documentOf(std::string("a: ") + text);
    EXPECT_THAT(Node(document).at("a").matrix(2, 2), ElementsAre(1, 2, 3, 4)) << text;
    EXPECT_THAT(Node(document).at("a").numbers(4), ElementsAre(1, 2, 3, 4)) << text;
  }
}

TEST(NodeMatrix, IsOfTheShape) {
  for (const auto& [text, problem] : std::vector<std::pair<std::string, std::string>>{
           {"[[1, 2, 3], [4]]", "[0]: found 3 numbers; 2 were wanted"},
           {"[[1, 2, 3, 4]]", ": found 1 rows; 2 x 2 was wanted"},
           {"[1, 2, 3]", ": found 3 numbers; 4 were wanted"},
           {"{rows: 1, cols: 4, data: [1, 2, 3, 4]}", ": found a matrix of 1 x 4; 2 x 2 was wanted"},
           {"{rows: 2, cols: 2, data: [1, 2, 3]}", ": found 3 numbers; rows 2 by cols 2 were said"},
           {"{cols: 2, data: [1, 2, 3, 4]}", ": has no rows"},
           {"text", ": found 'text'; a list of numbers was wanted"},
           {"[{c: 1}]", "[0]: found a map; a number was wanted"}}) {
    const Document document = documentOf("a: " + text);
    const auto read = [&](const std::string&, const std::string&) { Node(document).at("a").matrix(2, 2); };
    EXPECT_EQ(refusedBy(read, ""), "file: a" + problem);
  }
}

TEST(NodeFind, TakesTheFirstNameThatHoldsAnything) {
  const Document document = documentOf("a: ~\nb: 2\nc: 3\n");
  EXPECT_EQ(Node(document).at({"a", "b", "c"}).text(), "2");
  EXPECT_FALSE(Node(document).has("a"));
  EXPECT_FALSE(Node(document).find({"d", "e"}));
  const auto read = [&](const std::string&, const std::string&) { Node(document).at({"d", "e"}); };
  EXPECT_EQ(refusedBy(read, ""), "file: has no d or e");
}

TEST(NodeText, IsNoList) {
  const Document document = documentOf("a: [1]\nb: {c: 1}\nd: text\n");
  const auto read = [&](const std::string& key, const std::string&) { Node(document).at(key).text(); };
  EXPECT_EQ(refusedBy(read, "a"), "file: a: found a list; a text was wanted");
  EXPECT_EQ(refusedBy(read, "b"), "file: b: found a map; a text was wanted");
  const auto items = [&](const std::string& key, const std::string&) { Node(document).at(key).items(); };
  EXPECT_EQ(refusedBy(items, "d"), "file: d: found 'text'; a list was wanted");
}

}  // namespace
