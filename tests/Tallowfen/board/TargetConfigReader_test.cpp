#include "Tallowfen/src/board/TargetConfigReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <opencv2/core.hpp>
#include <system_error>

#include "DetectorDefaults.h"
#include "MorvenKit/ErrorCategories.h"
#include "tests/support/TempFolder.h"

namespace {

using kestrune::readStorageConfig;
using kestrune::readTextConfig;
using kestrune::RingTargetConfig;
using kestrune::morvenkit::DetectorErrc;
using testing::ElementsAre;
using testing::IsEmpty;

/// A big dot board with every key set to a value of its own.
constexpr const char* kJson = R"({ "patterns": [ {
  "seed": 7, "rows": 35, "cols": 37, "inner_width": 5, "inner_height": 6, "outter_width": 17, "outter_height": 13,
  "step": 20.5, "board_type": 3, "ratio_solid": 0.25, "ratio_big_ring": 0.75, "detection_switch": 1,
  "detection_id": [ 4, 5, 70000 ], "land_mark_switch": 2, "land_mark1_x": 11, "land_mark1_y": 12, "land_mark2_x": 21,
  "land_mark2_y": 22, "land_mark3_x": 31, "land_mark3_y": 32, "land_mark4_x": 41, "land_mark4_y": 42, "id_method": 1,
  "bin_method": 2, "bin_thresh": 3.5, "bin_blocksize": 150, "min_radius": 2.5, "max_radius": 60.5, "max_sigma": 0.5,
  "min_circularity": 0.625, "step_y": 21.5 } ] }
)";
constexpr const char* kYaml = R"(%YAML:1.0
---
patterns:
   - { seed:7, rows:35, cols:37, inner_width:5, inner_height:6, outter_width:17, outter_height:13, step:20.5,
       board_type:3, ratio_solid:0.25, ratio_big_ring:0.75, detection_switch:1, detection_id:[ 4, 5, 70000 ],
       land_mark_switch:2, land_mark1_x:11, land_mark1_y:12, land_mark2_x:21, land_mark2_y:22, land_mark3_x:31,
       land_mark3_y:32, land_mark4_x:41, land_mark4_y:42, id_method:1, bin_method:2, bin_thresh:3.5,
       bin_blocksize:150, min_radius:2.5, max_radius:60.5, max_sigma:0.5, min_circularity:0.625, step_y:21.5 }
)";
constexpr const char* kXml = R"(<?xml version="1.0"?>
<opencv_storage><patterns><_>
<seed>7</seed><rows>35</rows><cols>37</cols><inner_width>5</inner_width><inner_height>6</inner_height>
<outter_width>17</outter_width><outter_height>13</outter_height><step>20.5</step><board_type>3</board_type>
<ratio_solid>0.25</ratio_solid><ratio_big_ring>0.75</ratio_big_ring><detection_switch>1</detection_switch>
<detection_id>4 5 70000</detection_id><land_mark_switch>2</land_mark_switch><land_mark1_x>11</land_mark1_x>
<land_mark1_y>12</land_mark1_y><land_mark2_x>21</land_mark2_x><land_mark2_y>22</land_mark2_y>
<land_mark3_x>31</land_mark3_x><land_mark3_y>32</land_mark3_y><land_mark4_x>41</land_mark4_x>
<land_mark4_y>42</land_mark4_y><id_method>1</id_method><bin_method>2</bin_method><bin_thresh>3.5</bin_thresh>
<bin_blocksize>150</bin_blocksize><min_radius>2.5</min_radius><max_radius>60.5</max_radius>
<max_sigma>0.5</max_sigma><min_circularity>0.625</min_circularity><step_y>21.5</step_y>
</_></patterns></opencv_storage>
)";
constexpr const char* kText =
    "# all keys\nseed: 7\nrows: 35\ncols: 37\ninner_width: 5\ninner_height: 6\noutter_width: 17\noutter_height: 13\n"
    "step: 20.5\nboard_type: 3\nratio_solid: 0.25\nratio_big_ring: 0.75\ndetection_switch: 1\n"
    "detection_id: [4,5,70000]\nland_mark_switch: 2\nland_mark1_x: 11\nland_mark1_y: 12\nland_mark2_x: 21\n"
    "land_mark2_y: 22\nland_mark3_x: 31\nland_mark3_y: 32\nland_mark4_x: 41\nland_mark4_y: 42\nid_method: 1\n"
    "bin_method: 2\nbin_thresh: 3.5\nbin_blocksize: 150\nmin_radius: 2.5\nmax_radius: 60.5\nmax_sigma: 0.5\n"
    "min_circularity: 0.625\nstep_y: 21.5\n";

void expectGeometry(const RingTargetConfig& config) {
  EXPECT_EQ(config.seed, 7);
  EXPECT_EQ(config.rows, 35);
  EXPECT_EQ(config.cols, 37);
  EXPECT_EQ(config.inner_width, 5);
  EXPECT_EQ(config.inner_height, 6);
  EXPECT_EQ(config.outter_width, 17);
  EXPECT_EQ(config.outter_height, 13);
  EXPECT_EQ(config.step, 20.5F);
  EXPECT_EQ(config.ratio_solid, 0.25F);
  EXPECT_EQ(config.ratio_big_ring, 0.75F);
}

void expectDetectionKeys(const RingTargetConfig& config) {
  EXPECT_EQ(config.board_type, 3);
  EXPECT_EQ(config.detection_switch, 1);
  EXPECT_THAT(config.detection_id, ElementsAre(4, 5, 70000 - 65536));
  EXPECT_EQ(config.land_mark_switch, 2);
  EXPECT_EQ(config.land_mark1_x, 11);
  EXPECT_EQ(config.land_mark1_y, 12);
  EXPECT_EQ(config.land_mark2_x, 21);
  EXPECT_EQ(config.land_mark2_y, 22);
  EXPECT_EQ(config.land_mark3_x, 31);
  EXPECT_EQ(config.land_mark3_y, 32);
  EXPECT_EQ(config.land_mark4_x, 41);
  EXPECT_EQ(config.land_mark4_y, 42);
  EXPECT_EQ(config.id_method, 1);
  EXPECT_EQ(config.bin_method, 2);
  EXPECT_EQ(config.bin_thresh, 3.5F);
  EXPECT_EQ(config.bin_blocksize, 150);
  EXPECT_EQ(config.min_radius, 2.5F);
  EXPECT_EQ(config.max_radius, 60.5F);
  EXPECT_EQ(config.max_sigma, 0.5F);
  EXPECT_EQ(config.min_circularity, 0.625F);
  EXPECT_EQ(config.step_y, 21.5F);
}

/// What a record holds beside the geometry when a big dot board leaves its keys out, or a ring board names them.
void expectFixedValues(const RingTargetConfig& config) {
  expectDetectorDefaults(config);
  EXPECT_EQ(config.step_y, 0.0F);
}

std::string replaced(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

struct StorageCase {
  const char* name;
  const char* file;
  const char* content;
  const char* type_three;
  const char* type_two;
};

class TargetConfigReaderForms : public testing::TestWithParam<StorageCase> {};

TEST_P(TargetConfigReaderForms, EveryKeyOfABigDotBoardArrives) {
  const TempFolder folder;
  const RingTargetConfig config = readStorageConfig(folder.write(GetParam().file, GetParam().content));
  expectGeometry(config);
  expectDetectionKeys(config);
}

TEST_P(TargetConfigReaderForms, ARingBoardReadsItsGeometryOnly) {
  const TempFolder folder;
  const std::string content = replaced(GetParam().content, GetParam().type_three, GetParam().type_two);
  const RingTargetConfig config = readStorageConfig(folder.write(GetParam().file, content));
  EXPECT_EQ(config.board_type, 2);
  expectGeometry(config);
  expectFixedValues(config);
  EXPECT_THAT(config.detection_id, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Table, TargetConfigReaderForms,
                         testing::Values(StorageCase{"Json", "t.json", kJson, "\"board_type\": 3", "\"board_type\": 2"},
                                         StorageCase{"Yml", "t.yml", kYaml, "board_type:3", "board_type:2"},
                                         StorageCase{"Yaml", "t.yaml", kYaml, "board_type:3", "board_type:2"},
                                         StorageCase{"Xml", "t.xml", kXml, "<board_type>3", "<board_type>2"}),
                         [](const auto& tested) { return tested.param.name; });

RingTargetConfig readJson(const std::string& content) {
  const TempFolder folder;
  return readStorageConfig(folder.write("t.json", content));
}

void expectError(const std::string& file, const std::string& content, DetectorErrc code, const std::string& text) {
  const TempFolder folder;
  try {
    readStorageConfig(content.empty() ? folder.file(file) : folder.write(file, content));
    FAIL() << "no exception";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), make_error_code(code));
    EXPECT_EQ(std::string(error.what()), text + ": " + error.code().message());
  }
}

TEST(TargetConfigReaderStorage, MissingKeysOfABigDotBoard) {
  const RingTargetConfig config = readJson(R"({ "patterns": [ { "board_type": 3 } ] })");
  EXPECT_EQ(config.board_type, 3);
  EXPECT_EQ(config.rows, 0);
  EXPECT_EQ(config.step, 0.0F);
  EXPECT_EQ(config.ratio_big_ring, 0.0F);
  expectFixedValues(config);
  EXPECT_THAT(config.detection_id, IsEmpty());
}

TEST(TargetConfigReaderStorage, ABlocksizeOfZeroIsTwoHundred) {
  EXPECT_EQ(readJson(R"({ "patterns": [ { "board_type": 3, "bin_blocksize": 0 } ] })").bin_blocksize, 200);
}

TEST(TargetConfigReaderStorage, IntegersAreNarrowedWithoutARangeTest) {
  const RingTargetConfig config = readJson(R"({ "patterns": [ { "board_type": 1, "rows": 65537, "cols": -1 } ] })");
  EXPECT_EQ(config.rows, 1);
  EXPECT_EQ(config.cols, 65535);
}

TEST(TargetConfigReaderStorage, OnlyTheFirstPatternCounts) {
  EXPECT_EQ(readJson(R"({ "patterns": [ { "board_type": 1, "rows": 3 }, { "board_type": 9, "rows": 4 } ] })").rows, 3);
}

TEST(TargetConfigReaderStorage, AMissingFileIsBadContent) {
  expectError("none.json", "", DetectorErrc::kBadContent, "[RingTarget::loadConfig]");
}

TEST(TargetConfigReaderStorage, AMalformedDocumentIsNotAccessible) {
  expectError("t.json", "{ \"patterns\": [ {", DetectorErrc::kFileNotAccessible, "[RingTarget::loadConfig]");
}

TEST(TargetConfigReaderStorage, WithoutPatternsTheConfigurationIsBad) {
  expectError("t.json", R"({ "rows": 3 })", DetectorErrc::kBadConfiguration, "[");
}

TEST(TargetConfigReaderStorage, PatternsWithoutAFirstElementAreTheLibrarysException) {
  const TempFolder folder;
  for (const char* content :
       {R"({ "patterns": 3 })", R"({ "patterns": [] })", R"({ "patterns": { "board_type": 2 } })"})
    EXPECT_THROW(readStorageConfig(folder.write("t.json", content)), cv::Exception) << content;
}

TEST(TargetConfigReaderStorage, AnUnknownBoardIsABadConfiguration) {
  constexpr const char* kNotSupported = "[RingTarget::loadConfig:board is not supported";
  expectError("t.xml",
              "<?xml version=\"1.0\"?>\n<opencv_storage><patterns><_><board_type>4</board_type></_></patterns>"
              "</opencv_storage>\n",
              DetectorErrc::kBadConfiguration, kNotSupported);
  expectError("t.json", R"({ "patterns": [ { "rows": 3 } ] })", DetectorErrc::kBadConfiguration, kNotSupported);
}

TEST(TargetConfigReaderText, EveryKeyOfABigDotBoardArrives) {
  const auto config = readTextConfig(kText);
  ASSERT_TRUE(config);
  expectGeometry(*config);
  expectDetectionKeys(*config);
}

TEST(TargetConfigReaderText, ReadsWindowsLineEnds) {
  std::string text;
  for (const char* at = kText; *at != '\0'; ++at) {
    if (*at == '\n') text += '\r';
    text += *at;
  }
  const auto config = readTextConfig(text);
  ASSERT_TRUE(config);
  expectGeometry(*config);
  expectDetectionKeys(*config);
}

TEST(TargetConfigReaderText, ARingBoardReadsItsGeometryOnly) {
  for (const char* type : {"board_type: 1", "board_type: 2"}) {
    const auto config = readTextConfig(replaced(kText, "board_type: 3", type));
    ASSERT_TRUE(config);
    EXPECT_EQ(config->board_type, type[12] - '0');
    expectGeometry(*config);
    expectFixedValues(*config);
    EXPECT_THAT(config->detection_id, IsEmpty());
  }
}

TEST(TargetConfigReaderText, MissingKeysOfABigDotBoard) {
  const auto config = readTextConfig("board_type: 3");
  ASSERT_TRUE(config);
  EXPECT_EQ(config->rows, 0);
  EXPECT_EQ(config->cols, 0);
  EXPECT_EQ(config->step, 0.0F);
  expectFixedValues(*config);
  EXPECT_THAT(config->detection_id, ElementsAre(0));
}

TEST(TargetConfigReaderText, ABlocksizeOfZeroIsTwoHundred) {
  EXPECT_EQ(readTextConfig("board_type: 3\nbin_blocksize: 0")->bin_blocksize, 200);
}

TEST(TargetConfigReaderText, IntegersAreNarrowedWithoutARangeTest) {
  const auto config = readTextConfig("board_type: 2\nrows: 65537\ncols: -1");
  EXPECT_EQ(config->rows, 1);
  EXPECT_EQ(config->cols, 65535);
}

TEST(TargetConfigReaderText, TheLastOfEqualKeysWins) {
  EXPECT_EQ(readTextConfig("board_type: 2\nrows: 3\nrows: 4")->rows, 4);
}

TEST(TargetConfigReaderText, AnyOtherBoardMakesNoRecord) {
  for (const char* text : {"board_type: 4\nrows: 3", "board_type: 0", "board_type: -1", "rows: 3", "/a/path.txt", ""}) {
    EXPECT_FALSE(readTextConfig(text)) << text;
  }
}

TEST(TargetConfigReaderConfigText, AFileEndingInIniIsRead) {
  const TempFolder folder;
  EXPECT_EQ(kestrune::configText(folder.write("t.ini", "a: 1\r\nb: 2")), "a: 1\r\nb: 2");
  EXPECT_EQ(kestrune::configText(folder.write("bikini", "a: 1")), "a: 1") << "three last characters, not an extension";
  EXPECT_EQ(kestrune::configText(folder.path().string() + "\\t.ini"), "a: 1\r\nb: 2");
}

TEST(TargetConfigReaderConfigText, AFileOfAnotherEndingIsTakenAsTheText) {
  const TempFolder folder;
  for (const char* name : {"t.txt", "t.INI", "t.ini "}) {
    const std::string path = folder.write(name, "a: 1");
    EXPECT_EQ(kestrune::configText(path), path);
  }
}

TEST(TargetConfigReaderConfigText, WhatDoesNotOpenIsTheText) {
  EXPECT_EQ(kestrune::configText("a: 1\nb: 2"), "a: 1\nb: 2");
  EXPECT_EQ(kestrune::configText("/nowhere/t.ini"), "/nowhere/t.ini");
}

TEST(TargetConfigReaderConfigText, AnEmptyFileIsEmpty) {
  const TempFolder folder;
  EXPECT_EQ(kestrune::configText(folder.write("t.ini", "")), "");
}

}  // namespace
