#include "calibrations/document/YamlText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document/Texts.h"

namespace {

using calibrations::Value;
using calibrations::valuesOfYaml;
using testing::ElementsAre;
using testing::HasSubstr;

std::string lineOf(const std::string& text) {
  std::string lines;
  for (const Value& value : valuesOfYaml(text, "file")) lines += (lines.empty() ? "" : " | ") + line(value);
  return lines;
}

std::string refused(const std::string& text) { return refusedBy(valuesOfYaml, text); }

TEST(YamlText, HoldsListsAndMaps) {
  EXPECT_EQ(lineOf("a: [1, 2.5, [x]]\nb:\n  c: ~\n  d: 'it''s'\n"), "{a=[1 2.5 [x]] b={c=~ d=it's}}");
}

TEST(YamlText, MayBeLaidOutAsRealFilesAre) {
  const char* const wanted = "{M={rows=1 cols=2 dt=d data=[1. -2.e-01]} T=[1 2]}";
  const std::string matrix = "M: !!opencv-matrix\n   rows: 1\n   cols: 2\n   dt: d\n   data: [ 1., -2.e-01 ]\n";
  EXPECT_EQ(lineOf("%YAML:1.0\n---\n" + matrix + "T: [1, 2]\n"), wanted);
  EXPECT_EQ(lineOf("%YAML:1.0\n" + matrix + "T: [1, 2]\n"), wanted);  // No marker of the document.
  EXPECT_EQ(lineOf("%YAML:1.0 # a remark\n\n" + matrix + "T: [1, 2]"), wanted);
  EXPECT_EQ(lineOf(matrix + "T:\n- 1\n- 2\n"), wanted);           // No header, items at the key's indent.
  EXPECT_EQ(lineOf(matrix + "T:\r\n  [1,\r\n  2]\r\n"), wanted);  // Wrapped, with carriage returns.
  EXPECT_EQ(lineOf(matrix + "T:\n  - 1\n  - 2\n...\n"), wanted);
}

TEST(YamlText, RepeatsWhatAnAnchorNames) {
  EXPECT_EQ(lineOf("a: &id001 [640, 480]\nb: *id001\nc: &t {d: &n 1}\ne: [*n, *t]\n"),
            "{a=[640 480] b=[640 480] c={d=1} e=[1 {d=1}]}");
}

TEST(YamlText, MayHoldSeveralDocuments) {
  EXPECT_EQ(lineOf("---\n---\na: 1\n---\n# nothing\n---\nb: 2\n"), "{a=1} | {b=2}");
}

TEST(YamlText, IsRefusedWhereItIsNoYaml) {
  EXPECT_EQ(refused("a: [1, 2\nb: 3\n"), "file: line 2: is no YAML: end of sequence flow not found");
  EXPECT_THAT(refused("a: *none\n"), HasSubstr("file: line 1: is no YAML: "));
  EXPECT_THAT(refused("a: 1\n b: 2\n"), HasSubstr("file: line 2: is no YAML: "));
  EXPECT_EQ(refused("# remarks\n---\n"), "file: holds nothing; a calibration was wanted");
}

TEST(YamlText, IsRefusedWhereItIsATrap) {
  EXPECT_EQ(refused("a: 1\nb: 2\na: 3\n"), "file: line 3: has the key 'a' twice, which is not read");
  EXPECT_EQ(refused("a: &x [1, *x]\n"), "file: line 1: has an alias of nothing before it, which is not read");
  EXPECT_EQ(refused("a: &x b\n*x : 1\n"), "file: line 2: has an alias as a key, which is not read");
  EXPECT_EQ(refused("? [1, 2]\n: 3\n"), "file: line 1: has a list or a map as a key, which is not read");
  EXPECT_EQ(refused(std::string(33, '[') + std::string(33, ']')),
            "file: line 1: has more than 32 levels, which is not read");
  EXPECT_THAT(refused(std::string(100000, '[')), HasSubstr("file: line 1: has "));
  EXPECT_THAT(refused(std::string(100000, '{')), HasSubstr("file: line 1: "));
  std::string dashes;
  for (int k = 0; k < 40; ++k) dashes += "- ";
  EXPECT_THAT(refused(dashes), HasSubstr("has more than 32 levels"));
}

/// The parser does not come back from these by itself.
TEST(YamlText, IsRefusedWhereTheParserStands) {
  for (const char* text : {", 1", "a: 1\n---\n, 2"}) {
    EXPECT_THAT(refused(text), HasSubstr("has a character that begins no value, which is not read")) << text;
  }
}

TEST(YamlText, IsRefusedWhereItGrowsWithoutEnd) {
  std::string text = "a0: &a0 [1, 1, 1, 1, 1, 1, 1, 1, 1, 1]\n";
  for (int k = 1; k < 20; ++k) {
    std::string repeated;
    for (int each = 0; each < 10; ++each) repeated += (each == 0 ? "*a" : ", *a") + std::to_string(k - 1);
    text += "a" + std::to_string(k) + ": &a" + std::to_string(k) + " [" + repeated + "]\n";
  }
  EXPECT_THAT(refused(text), HasSubstr("has more than 200000 values, which is not read"));
  std::string documents;
  for (int k = 0; k < 21000; ++k) documents += "---\n[1, 1, 1, 1, 1, 1, 1, 1, 1]\n";
  EXPECT_THAT(refused(documents), HasSubstr("has more than 200000 values, which is not read"));
  EXPECT_EQ(refused(std::string((1U << 20) + 1, ' ')),
            "file: is longer than 1048576 characters; a calibration file was wanted");
}

}  // namespace
