#include "input/PolarConfigReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "support/CommaLocale.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Reading {
  std::int32_t status = -99;
  std::string printed;
  PolarConfig config;
};

Reading read(const std::string& text, const std::string& result_folder = "out") {
  Reading reading;
  const ConsoleCapture capture;
  reading.status = ReadPolarConfig(text, result_folder, reading.config);
  reading.printed = capture.out();
  return reading;
}

struct KeyCase {
  const char* key;
  std::function<double(const PolarConfig&)> field;
};

#define KEY(name)                                                                     \
  KeyCase {                                                                           \
#name, [](const PolarConfig& config) { return static_cast<double>(config.name); } \
  }

class PolarConfigReaderWholeNumberKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(PolarConfigReaderWholeNumberKeys, SetTheirField) {
  const Reading reading = read(std::string(GetParam().key) + ": 41");
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(GetParam().field(reading.config), 41.0);
  EXPECT_EQ(GetParam().field(read("unknown: 1").config), 0.0);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, PolarConfigReaderWholeNumberKeys,
    testing::Values(KEY(type), KEY(x_y), KEY(evaluation), KEY(savepolarline), KEY(evalu_model), KEY(crop),
                    KEY(cropped_cols), KEY(cropped_rows), KEY(allpoints_calc_switch), KEY(foursixmethod_swithch),
                    KEY(triangulate_residual_switch), KEY(triangulate_dis_switch), KEY(dy_bias_switch),
                    KEY(tir_bias_savecsv_swithch), KEY(allpointssavecsv_swithch), KEY(dy_bias_savecsv_swithch),
                    KEY(tri_bias_savepng_swithch), KEY(dy_bias_savepng_swithch), KEY(pattern_rows), KEY(pattern_cols),
                    KEY(TriPoint1_ID), KEY(TriPoint2_ID), KEY(TriPoint3_ID), KEY(TriPoint4_ID), KEY(PolPoint1_ID),
                    KEY(PolPoint2_ID), KEY(PolPoint3_ID), KEY(PolPoint4_ID), KEY(oqc_switch), KEY(frame_work)),
    [](const auto& test) { return std::string(test.param.key); });

class PolarConfigReaderFractionKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(PolarConfigReaderFractionKeys, SetTheirFieldInSinglePrecision) {
  const Reading reading = read(std::string(GetParam().key) + ": 0.1");
  EXPECT_EQ(GetParam().field(reading.config), static_cast<double>(0.1F));
}

INSTANTIATE_TEST_SUITE_P(Keys, PolarConfigReaderFractionKeys,
                         testing::Values(KEY(f_scale), KEY(pattern_step), KEY(dy_bias_divid), KEY(tri_bias_divid)),
                         [](const auto& test) { return std::string(test.param.key); });

class PolarConfigReaderFlagKeys : public testing::TestWithParam<KeyCase> {};

TEST_P(PolarConfigReaderFlagKeys, SetTheirField) {
  EXPECT_EQ(GetParam().field(read(std::string(GetParam().key) + ": 1").config), 1.0);
  EXPECT_EQ(GetParam().field(read(std::string(GetParam().key) + ": 0").config), 0.0);
}

INSTANTIATE_TEST_SUITE_P(Keys, PolarConfigReaderFlagKeys,
                         testing::Values(KEY(eccentricity), KEY(discalswitch), KEY(discalsave), KEY(spaceRms_switch)),
                         [](const auto& test) { return std::string(test.param.key); });

struct PointCase {
  const char* key;
  std::vector<double> PolarConfig::*field;
};

class PolarConfigReaderPointKeys : public testing::TestWithParam<PointCase> {
 protected:
  Reading readValue(const std::string& value) { return read(std::string(GetParam().key) + ":" + value); }
};

TEST_P(PolarConfigReaderPointKeys, TakeThreeNumbers) {
  const Reading reading = readValue(" [1.5,-2,3]");
  EXPECT_EQ(reading.status, 0);
  EXPECT_THAT(reading.config.*GetParam().field, ElementsAre(1.5, -2.0, 3.0));
}

TEST_P(PolarConfigReaderPointKeys, AnotherCountEndsTheReading) {
  for (const char* value : {" [0,0]", " [0,0,0,0]", " []", "", " [0,0,0", " [1.0, 2.0, 3.0]", "\r"}) {
    EXPECT_EQ(readValue(value).status, 3) << value;
  }
}

TEST_P(PolarConfigReaderPointKeys, ItemsCountNotTheirMeaning) {
  const Reading reading = readValue("[a,b,c]");
  EXPECT_EQ(reading.status, 0);
  EXPECT_THAT(reading.config.*GetParam().field, ElementsAre(0.0, 0.0, 0.0));
  EXPECT_EQ(readValue("[1,,2]").status, 0);
  EXPECT_EQ(readValue("[1,2,3,]").status, 0);
}

TEST_P(PolarConfigReaderPointKeys, AbsentIsNoFailure) {
  const Reading reading = read("type: 1");
  EXPECT_EQ(reading.status, 0);
  EXPECT_THAT(reading.config.*GetParam().field, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Keys, PolarConfigReaderPointKeys,
                         testing::Values(PointCase{"TriPoint1_GT", &PolarConfig::TriPoint1_GT},
                                         PointCase{"TriPoint2_GT", &PolarConfig::TriPoint2_GT},
                                         PointCase{"TriPoint3_GT", &PolarConfig::TriPoint3_GT},
                                         PointCase{"TriPoint4_GT", &PolarConfig::TriPoint4_GT},
                                         PointCase{"PolPoint1_GT", &PolarConfig::PolPoint1_GT},
                                         PointCase{"PolPoint2_GT", &PolarConfig::PolPoint2_GT},
                                         PointCase{"PolPoint3_GT", &PolarConfig::PolPoint3_GT},
                                         PointCase{"PolPoint4_GT", &PolarConfig::PolPoint4_GT}),
                         [](const auto& test) { return std::string(test.param.key); });

TEST(PolarConfigReader, ATextThatNamesNoFileIsTheConfigurationItself) {
  const Reading reading = read("x_y: 1");
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.config.x_y, 1);
  EXPECT_EQ(reading.config.result_folder, "out");
  EXPECT_EQ(reading.printed, "");
}

TEST(PolarConfigReader, ReadsAFileByEitherSeparator) {
  const TempFolder folder;
  folder.write("polar.txt", "x_y: 1\ntype: 2\n");
  EXPECT_EQ(read(folder.file("polar.txt")).config.type, 2);
  EXPECT_EQ(read(folder.path().string() + "\\polar.txt").config.type, 2);
}

TEST(PolarConfigReader, WindowsLineEndsReadTheSame) {
  const TempFolder folder;
  const std::string text =
      "type: 3\r\n\r\n# comment\r\nf_scale: 1.5\r\ndiscalsave: 1\r\nTriPoint1_GT: [1,2,3]\r\nFrame_3D: [[1,2,3]]\r\n";
  const PolarConfig config = read(folder.write("polar.txt", text)).config;
  EXPECT_EQ(config.type, 3);
  EXPECT_EQ(config.f_scale, 1.5F);
  EXPECT_TRUE(config.discalsave);
  EXPECT_THAT(config.TriPoint1_GT, ElementsAre(1, 2, 3));
  EXPECT_THAT(config.Frame_3D, ElementsAre(ElementsAre(1, 2, 3)));
}

TEST(PolarConfigReader, AnEmptyStringPrintsWithoutLineEndAndLeavesTheFolder) {
  const Reading reading = read("");
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "polarconfig is NULL");
  EXPECT_EQ(reading.config.result_folder, "");
}

TEST(PolarConfigReader, AnEmptyFileLeavesTheRecord) {
  const TempFolder folder;
  const Reading reading = read(folder.write("polar.txt", ""));
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "Polarconfig is empty or no content was read.\n");
  EXPECT_EQ(reading.config.result_folder, "");
}

TEST(PolarConfigReader, AFileOfCommentsOnlyHasNoUsableLine) {
  const TempFolder folder;
  const Reading reading = read(folder.write("polar.txt", "# type: 1\n# x_y: 1\n"));
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "Read Polar file Fail!\n");
  EXPECT_EQ(reading.config.result_folder, "");
  EXPECT_EQ(read("/no/such/file").printed, "Read Polar file Fail!\n") << "a path that does not open is text too";
}

TEST(PolarConfigReader, AFolderIsNoFile) {
  const TempFolder folder;
  EXPECT_EQ(read(folder.path().string()).printed, "Read Polar file Fail!\n");
}

TEST(PolarConfigReader, BlanksBeforeTheValueAndBehindTheKeyAreFree) {
  EXPECT_EQ(read("f_scale:1.5").config.f_scale, 1.5F);
  EXPECT_EQ(read("f_scale :   1.5").config.f_scale, 1.5F);
  EXPECT_EQ(read(" f_scale: 1.5").config.f_scale, 1.0F);
}

TEST(PolarConfigReader, AMissingOpeningBracketIsAccepted) {
  const Reading reading = read("TriPoint1_GT: 0,0,0]");
  EXPECT_EQ(reading.status, 0);
  EXPECT_THAT(reading.config.TriPoint1_GT, ElementsAre(0, 0, 0));
}

TEST(PolarConfigReader, OnlyTheMisspeltKeysAreHonoured) {
  const PolarConfig config = read(
                                 "tri_bias_savecsv_swithch: 1\ntir_bias_savecsv_switch: 1\ntri_bias_savepng_switch: 1\n"
                                 "foursixmethod_switch: 1\nallpointssavecsv_switch: 1\ndy_bias_savecsv_switch: 1\n"
                                 "dy_bias_savepng_switch: 1\ndy_bias_swithch: 1\nType: 1\n")
                                 .config;
  EXPECT_EQ(config.tir_bias_savecsv_swithch, 0);
  EXPECT_EQ(config.tri_bias_savepng_swithch, 0);
  EXPECT_EQ(config.foursixmethod_swithch, 0);
  EXPECT_EQ(config.allpointssavecsv_swithch, 0);
  EXPECT_EQ(config.dy_bias_savecsv_swithch, 0);
  EXPECT_EQ(config.dy_bias_savepng_swithch, 0);
  EXPECT_EQ(config.dy_bias_switch, 0);
  EXPECT_EQ(config.type, 0);
}

TEST(PolarConfigReader, ReadsTheListsOfTheRuns) {
  const PolarConfig config = read(
                                 "Cal_ID_DIS: [[1,2],[3,4]]\nFrame_3D: [[1.5,2,3],[4,5,6]]\nFrame_IRL: [[10.5,20]]\n"
                                 "Frame_IRR: [[30,40.5]]\nFrame_ID: [1,,3]\nFrame_ID_DIS: [[1,3]]\n")
                                 .config;
  EXPECT_THAT(config.Cal_ID_DIS, ElementsAre(ElementsAre(1, 2), ElementsAre(3, 4)));
  EXPECT_THAT(config.Frame_3D, ElementsAre(ElementsAre(1.5, 2, 3), ElementsAre(4, 5, 6)));
  EXPECT_THAT(config.Frame_IRL, ElementsAre(ElementsAre(10.5, 20)));
  EXPECT_THAT(config.Frame_IRR, ElementsAre(ElementsAre(30, 40.5)));
  EXPECT_THAT(config.Frame_ID, ElementsAre(1, 0, 3));
  EXPECT_THAT(config.Frame_ID_DIS, ElementsAre(ElementsAre(1, 3)));
}

const std::string kEveryStage =
    "type: 5\nTriPoint4_ID: 6\noqc_switch: 7\nCal_ID_DIS: [[1,2]]\nframe_work: 1\ntri_bias_divid: 2\nPolPoint1_ID: 9\n"
    "foursixmethod_swithch: 8\n";

TEST(PolarConfigReader, KeysBeforeTheStopKeepTheirValues) {
  const Reading reading = read(kEveryStage + "TriPoint1_GT: [1,2,3]\nTriPoint2_GT: [1]\nTriPoint3_GT: [1,2,3]\n");
  EXPECT_EQ(reading.status, 3);
  EXPECT_EQ(reading.printed, "");
  EXPECT_EQ(reading.config.type, 5);
  EXPECT_EQ(reading.config.TriPoint4_ID, 6);
  EXPECT_THAT(reading.config.TriPoint1_GT, ElementsAre(1, 2, 3));
  EXPECT_THAT(reading.config.TriPoint2_GT, ElementsAre(1));
  EXPECT_THAT(reading.config.TriPoint3_GT, IsEmpty());
  EXPECT_EQ(reading.config.tri_bias_divid, 0.0F);
  EXPECT_EQ(reading.config.foursixmethod_swithch, 0);
  EXPECT_EQ(reading.config.result_folder, "");
}

TEST(PolarConfigReader, ALateStopHasReadWhatComesBeforeIt) {
  const Reading reading = read(kEveryStage + "PolPoint4_GT: [1]\n");
  EXPECT_EQ(reading.status, 3);
  EXPECT_EQ(reading.config.tri_bias_divid, 2.0F);
  EXPECT_EQ(reading.config.foursixmethod_swithch, 8);
  EXPECT_EQ(reading.config.PolPoint1_ID, 9);
  EXPECT_EQ(reading.config.oqc_switch, 0);
  EXPECT_EQ(reading.config.frame_work, 0);
  EXPECT_THAT(reading.config.Cal_ID_DIS, IsEmpty());
  EXPECT_EQ(reading.config.result_folder, "");
}

TEST(PolarConfigReader, TheResultFolderIsNoKey) {
  EXPECT_EQ(read("result_folder: here").config.result_folder, "out");
  PolarConfig config;
  config.result_folder = "old";
  EXPECT_EQ(ReadPolarConfig("type: 1", "", config), 0);
  EXPECT_EQ(config.result_folder, "");
}

TEST(PolarConfigReader, AMissingBoardCheckSwitchMeansOn) {
  PolarConfig config;
  config.spaceRms_switch = false;
  ReadPolarConfig("type: 1", "", config);
  EXPECT_TRUE(config.spaceRms_switch);
}

TEST(PolarConfigReader, AKeyWithoutValueKeepsItsField) {
  EXPECT_EQ(read("f_scale:\ntype: 2").config.f_scale, 1.0F);
  EXPECT_TRUE(read("spaceRms_switch:\ntype: 2").config.spaceRms_switch);
}

TEST(PolarConfigReader, NumbersDoNotFollowTheProcessLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  const PolarConfig config =
      read(folder.write("p.txt", "f_scale: 1.25\npattern_rows: 1.000\nTriPoint1_GT: [0.5,1.5,2.5]")).config;
  EXPECT_EQ(config.f_scale, 1.25F);
  EXPECT_EQ(config.pattern_rows, 1);
  EXPECT_THAT(config.TriPoint1_GT, ElementsAre(0.5, 1.5, 2.5));
}

TEST(PolarConfigReader, AHugeTextAndNulBytesAreHarmless) {
  EXPECT_EQ(read("x: " + std::string(1 << 20, '[') + "\ntype: 4").config.type, 4);
  EXPECT_EQ(read("type: 4\n" + std::string(3, '\0') + ":\nx_y: 1").config.x_y, 1);
}

}  // namespace
