#include <PolarLinePrecision.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <system_error>

#include "support/SpoiledSet.h"

namespace {

using ::testing::HasSubstr;

using Faults = SpoiledSet;

TEST_F(Faults, UnspoiledItWorks) {
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(results.size(), 2U);
  EXPECT_GT(results[0].dy_means, 0.0);
}

TEST_F(Faults, TruncatedBinaryCalibration) {
  const std::string whole = folder.read("calib.bin");
  folder.write("calib.bin", whole.substr(0, 3000));
  folder.write("polar.txt", "type: 1\nspaceRms_switch: 0");
  run("calib.bin");
  EXPECT_THAT(out, HasSubstr("Read Poly Fail!\n"));
}

TEST_F(Faults, TruncatedCalibrationOfAPolyRunEndsIt) {
  folder.write("calib.bin", folder.read("calib.bin").substr(0, 3000));
  folder.write("polar.txt", "type: 3");
  EXPECT_EQ(run("calib.bin"), polar_status::kPolyTables);
  EXPECT_EQ(errorText(), "Read Poly Params Error!");
  callersResultsAreUntouched();
}

TEST_F(Faults, FlippedBitInATableBlock) {
  std::string bytes = folder.read("calib.bin");
  bytes[50 + 54 + 81 + 700] = static_cast<char>(bytes[50 + 54 + 81 + 700] ^ 0x10);
  folder.write("calib.bin", bytes);
  folder.write("polar.txt", "type: 1\nspaceRms_switch: 0");
  MultiCalibration record;
  EXPECT_EQ(LoadCalibrationParamsMulti(folder.file("calib.bin").c_str(), &record, 0), polar_status::kCrcMismatch);
  run("calib.bin");
  EXPECT_THAT(out, HasSubstr("Read Poly Fail!\n"));
}

TEST_F(Faults, CalibrationWithoutACameraPair) {
  folder.write("calib.json", R"({"IR": {"Fx": 1}})");
  EXPECT_EQ(run(), polar_status::kCalibrationUnreadable);
  EXPECT_THAT(out, HasSubstr("not support the Json object, please input [IR/DEPTH/RGB/COLOR/IR_L/IR_R]\n"));
  callersResultsAreUntouched();
}

TEST_F(Faults, CalibrationOfAnotherType) {
  EXPECT_EQ(run("calib.yaml"), polar_status::kCalibrationType);
  EXPECT_THAT(out, HasSubstr("readCalibResult error: invalid fileType\n"));
}

TEST_F(Faults, CalibrationThatDoesNotOpen) {
  EXPECT_EQ(run("missing.json"), polar_status::kCalibrationUnreadable);
  EXPECT_EQ(errorText(), "Fail to read calib result file");
  EXPECT_THAT(out, HasSubstr("cannot open the calib_result file\n"));
}

TEST_F(Faults, ListWithThreeColumns) {
  folder.write("list.txt", "#L R S\nleft_0.png right_0.png left_1.png\n");
  EXPECT_EQ(run(), polar_status::kImages);
  EXPECT_EQ(errorText(), "Read image Error!");
  callersResultsAreUntouched();
}

TEST_F(Faults, LineOfThreeNamesUnderTwoCamerasKeepsTheEarlierPairs) {
  folder.write("list.txt", "#L R\nleft_0.png right_0.png\nleft_1.png right_1.png left_1.png\n");
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(err, ::testing::StartsWith("fname pairs does not agree with number of camera!\n"));
  EXPECT_EQ(results.size(), 1U);
}

TEST_F(Faults, ListOfAHeaderOnly) {
  folder.write("list.txt", "#L R\n");
  EXPECT_EQ(run(), polar_status::kNoResults);
  callersResultsAreUntouched();
}

TEST_F(Faults, TargetTextWithAnUnknownBoardFindsNothing) {
  folder.write("target.ini", "board_type: 4\nrows: 21\ncols: 23\n");
  const std::int32_t status = run();
  EXPECT_TRUE(status == polar_status::kTooFewDetected || status == polar_status::kNoResults) << status;
  callersResultsAreUntouched();
}

TEST_F(Faults, TargetDocumentWithAnUnknownBoardThrows) {
  folder.write("target.json", R"({"patterns": [{"board_type": 4}]})");
  const ConsoleCapture quiet;
  try {
    CalPolarLinePrecision(folder.file("polar.txt").c_str(), folder.file("target.json").c_str(),
                          folder.file("calib.json").c_str(), folder.file("list.txt").c_str(), &results);
    FAIL() << "no exception";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code().value(), 4);
    EXPECT_STREQ(error.code().category().name(), "ImageDetector");
    EXPECT_THAT(error.what(), HasSubstr("[RingTarget::loadConfig:board is not supported"));
  }
  callersResultsAreUntouched();
}

}  // namespace
