#include "input/CalibrationReader.h"

#include <gtest/gtest.h>

#include "input/CalibrationBytes.h"
#include "support/ConsoleCapture.h"
#include "support/TempFolder.h"

namespace {

using namespace calibration_bytes;

struct TypeCase {
  const char* path;
  std::int32_t type;
};

class CalibrationReaderFileTypes : public testing::TestWithParam<TypeCase> {};

TEST_P(CalibrationReaderFileTypes, ComesFromTheLastDot) { EXPECT_EQ(CalibFileType(GetParam().path), GetParam().type); }

INSTANTIATE_TEST_SUITE_P(Paths, CalibrationReaderFileTypes,
                         testing::Values(TypeCase{"calib.json", 1}, TypeCase{"calib.yaml", 2}, TypeCase{"a\\c.txt", 3},
                                         TypeCase{"/a/c.bin", 4}, TypeCase{"calib.tar.json", 1},
                                         TypeCase{"calib.JSON", 0}, TypeCase{"calib.Bin", 0}, TypeCase{"calib", 0},
                                         TypeCase{"", 0}, TypeCase{"json", 0}, TypeCase{"calib.yml", 0},
                                         TypeCase{"calib.json ", 0}, TypeCase{"a.json\\calib", 0},
                                         TypeCase{".bin", 4}));

struct Reading {
  std::int32_t status = -99;
  std::string printed;
  std::string error = "old";
  StereoCalibParams calib;
};

Reading read(const std::string& path) {
  Reading reading;
  reading.calib.left.poly_nx = 6;
  reading.calib.left.poly_ny = 4;
  reading.calib.right.poly_nx = 6;
  reading.calib.right.poly_ny = 4;
  reading.calib.left.height = 5;
  const ConsoleCapture capture;
  reading.status = ReadCalibResult(path, reading.calib, reading.error);
  reading.printed = capture.out();
  return reading;
}

void expectNoGrids(const StereoCalibParams& calib) {
  EXPECT_EQ(calib.left.poly_nx, 0);
  EXPECT_EQ(calib.left.poly_ny, 0);
  EXPECT_EQ(calib.right.poly_nx, 0);
  EXPECT_EQ(calib.right.poly_ny, 0);
}

class CalibrationReaderRefusedExtensions : public testing::TestWithParam<const char*> {};

TEST_P(CalibrationReaderRefusedExtensions, AreStatus4AndLeaveTheErrorText) {
  const TempFolder folder;
  const Reading reading = read(folder.write(GetParam(), R"({ "DEPTH": {"Fx": 1}, "RGB": {"Fx": 2} })"));
  EXPECT_EQ(reading.status, 4);
  EXPECT_EQ(reading.printed, "readCalibResult error: invalid fileType\n");
  EXPECT_EQ(reading.error, "old");
  EXPECT_EQ(reading.calib.left.height, 5U);
  expectNoGrids(reading.calib);
}

INSTANTIATE_TEST_SUITE_P(Files, CalibrationReaderRefusedExtensions,
                         testing::Values("c.JSON", "c.yaml", "c.txt", "c", "c.BIN"));

TEST(CalibrationReader, ReadsJsonAndClearsOnlyTheGrids) {
  const TempFolder folder;
  const Reading reading = read(folder.write("calib.tar.json", R"({ "DEPTH": {"Fx": 1}, "RGB": {"Fx": 2} })"));
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.calib.left.intrinsics[0], 1.0);
  EXPECT_EQ(reading.calib.right.intrinsics[0], 2.0);
  EXPECT_EQ(reading.calib.left.height, 5U);
  expectNoGrids(reading.calib);
}

TEST(CalibrationReader, AJsonFileThatDoesNotOpenIsMinus4WithItsText) {
  const TempFolder folder;
  const Reading reading = read(folder.file("gone.json"));
  EXPECT_EQ(reading.status, -4);
  EXPECT_EQ(reading.error, "Fail to read calib result file");
}

TEST(CalibrationReader, AJsonFileWithoutPairIsMinus4AndLeavesTheText) {
  const TempFolder folder;
  const Reading reading = read(folder.write("c.json", R"({ "IR": {"Fx": 1}, "RGB": {"Fx": 2} })"));
  EXPECT_EQ(reading.status, -4);
  EXPECT_EQ(reading.error, "old");
}

TEST(CalibrationReader, ReadsBinary) {
  const TempFolder folder;
  const Reading reading = read(folder.write("c.bin", mainForm({brown(), kb()})));
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "");
  EXPECT_EQ(reading.calib.left.height, 1200U);
  EXPECT_EQ(reading.calib.left.poly_nx, 6);
}

TEST(CalibrationReader, ABinaryFileThatDoesNotLoadIsStatus0) {
  const TempFolder folder;
  const Reading reading = read(folder.write("c.bin", ""));
  EXPECT_EQ(reading.status, 0);
  EXPECT_EQ(reading.printed, "Read Poly Fail!\n");
  EXPECT_EQ(reading.error, "old");
  expectNoGrids(reading.calib);
}

}  // namespace
