// Input files without a byte, folders in the place of files, and files of gigabytes.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "support/OpenFiles.h"
#include "support/SpoiledSet.h"

namespace {

using ::testing::Each;
using ::testing::HasSubstr;
namespace fs = std::filesystem;

using Spoil = std::function<void(const TempFolder&, const std::string&)>;

void empty(const TempFolder& folder, const std::string& name) { folder.write(name, ""); }

void makeFolder(const TempFolder& folder, const std::string& name) {
  fs::remove(folder.file(name));
  fs::create_directory(folder.file(name));
}

/// What a run on disk answers to one spoilt input.
struct InputCase {
  const char* name;
  Spoil spoil;
  const char* file;
  std::int32_t status;
  const char* printed;  ///< On either stream.
  const char* text;     ///< Of the last error.
};

class InputFileFaultsSpoilt : public SpoiledSet, public ::testing::WithParamInterface<InputCase> {};

TEST_P(InputFileFaultsSpoilt, EndsTheRunInItsOwnWay) {
  const InputCase& spoilt = GetParam();
  spoilt.spoil(folder, spoilt.file);
  const bool binary = std::string(spoilt.file) == "calib.bin";
  if (binary) folder.write("polar.txt", "type: 3");
  const std::size_t open_before = openFiles();
  EXPECT_EQ(run(binary ? "calib.bin" : "calib.json"), spoilt.status);
  EXPECT_EQ(openFiles(), open_before);
  EXPECT_THAT(out + err, HasSubstr(spoilt.printed));
  EXPECT_EQ(errorText(), spoilt.text);
  callersResultsAreUntouched();
}

INSTANTIATE_TEST_SUITE_P(
    Files, InputFileFaultsSpoilt,
    ::testing::Values(InputCase{"EmptyTarget", empty, "target.ini", polar_status::kTargetConfig,
                                "Calibconfig is empty or no content was read.\n", " Fail init camera model! "},
                      InputCase{"FolderAsTarget", makeFolder, "target.ini", polar_status::kTooFewDetected,
                                "checke_pointend:1260 1225 0\n", ""},
                      InputCase{"FolderAsCalibration", makeFolder, "calib.json", polar_status::kCalibrationUnreadable,
                                "cannot open the calib_result file\n", "Fail to read calib result file"},
                      InputCase{"EmptyBinary", empty, "calib.bin", polar_status::kPolyTables, "Read Poly Fail!\n",
                                "Read Poly Params Error!"},
                      InputCase{"FolderAsBinary", makeFolder, "calib.bin", polar_status::kPolyTables,
                                "Read Poly Fail!\n", "Read Poly Params Error!"},
                      InputCase{"EmptyList", empty, "list.txt", polar_status::kImages, "ParseHeaderLine failed!\n",
                                "Read image Error!"},
                      InputCase{"FolderAsList", makeFolder, "list.txt", polar_status::kImages, "to read failed!\n",
                                "Read image Error!"}),
    [](const auto& test) { return std::string(test.param.name); });

using InputFileFaults = SpoiledSet;

TEST_F(InputFileFaults, PolarConfigurationWithoutAByteLeavesTheDefaults) {
  folder.write("polar.txt", "");
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(out, HasSubstr("Polarconfig is empty or no content was read.\n"));
  ASSERT_EQ(results.size(), 2U);
  EXPECT_EQ(results[1].dy_means, 0.0);
  EXPECT_FALSE(folder.has("align_data_0.csv"));
}

TEST_F(InputFileFaults, FolderAsPolarConfigurationIsTakenAsText) {
  makeFolder(folder, "polar.txt");
  EXPECT_EQ(run(), 0);
  EXPECT_THAT(out, HasSubstr("Read Polar file Fail!\n"));
  EXPECT_EQ(results.size(), 2U);
}

TEST_F(InputFileFaults, CalibrationWithoutAByteIsAMalformedDocument) {
  folder.write("calib.json", "");
  const std::size_t open_before = openFiles();
  EXPECT_THROW(run(), cv::Exception);
  EXPECT_EQ(openFiles(), open_before);
  callersResultsAreUntouched();
}

/// The readers that callers use by themselves.
struct InputFileFaultsReading : ::testing::Test {
  TempFolder folder;
  ConsoleCapture console;
  ExportedCalibParams calibration;
  BoardGroundTruth board;
  ImagePairList images;
  MultiCalibration record;
};

TEST_F(InputFileFaultsReading, FilesWithoutAByteGiveZeros) {
  for (const char* name : {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"})
    folder.write(name, "");
  calibration.left.poly_x.fill(1.0F);
  EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calibration), 0);
  EXPECT_THAT(calibration.left.poly_x, Each(0.0F));
  EXPECT_EQ(ReadBoardGTFromCSV(folder.write("board.csv", ""), &board, true), 0);
  EXPECT_EQ(board, BoardGroundTruth(42));
  ReadBoardGTFromTxt(folder.write("board.txt", ""), &board);
  EXPECT_EQ(board.size(), 42U);
  EXPECT_EQ(ReadCalibImagelist(folder.write("list.txt", ""), &images), polar_status::kInputUnreadable);
  EXPECT_EQ(LoadCalibrationParamsMulti(folder.write("calib.bin", "").c_str(), &record, 0), polar_status::kNotSupported);
  EXPECT_THROW(ReadCalibParams(folder.write("calib.json", ""), &calibration), cv::Exception);
}

TEST_F(InputFileFaultsReading, FoldersInTheirPlaceGiveTheSame) {
  const std::size_t open_before = openFiles();
  for (const char* name :
       {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt", "a", "a.bin", "a.json"})
    fs::create_directory(folder.file(name));
  calibration.right.poly_y.fill(1.0F);
  EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calibration), 0);
  EXPECT_THAT(calibration.right.poly_y, Each(0.0F));
  EXPECT_EQ(ReadBoardGTFromCSV(folder.file("a"), &board, false), 0);
  EXPECT_EQ(board, BoardGroundTruth(42));
  ReadBoardGTFromTxt(folder.file("a"), &board);
  EXPECT_EQ(board.size(), 42U);
  EXPECT_EQ(ReadCalibImagelist(folder.file("a"), &images), polar_status::kInputUnreadable);
  EXPECT_EQ(LoadCalibrationParamsMulti(folder.file("a.bin").c_str(), &record, 0), EISDIR);
  EXPECT_EQ(ReadCalibParams(folder.file("a.json"), &calibration), 0) << "its reader's status plays no part";
  EXPECT_THAT(console.out(), HasSubstr("cannot open the calib_result file\n"));
  EXPECT_EQ(openFiles(), open_before);
}

/// Files of more than two gigabytes: a short lawful text, and zeros, which take no room on the disk.
struct InputFileFaultsHugeFiles : InputFileFaultsReading {
  static constexpr std::uintmax_t kHuge = (std::uintmax_t{1} << 31) + 4096;

  std::string huge(const std::string& name, const std::string& text) const {
    const std::string path = folder.write(name, text);
    fs::resize_file(path, kHuge);
    return path;
  }
  std::int32_t run(const std::string& polar, const std::string& target) {
    std::vector<PolarResultRecord> results;
    images = ImagePairList(2, std::vector<cv::Mat>(1, cv::Mat(60, 60, CV_8UC1, cv::Scalar(90))));
    return CalPolarLinePrecisionOutMat(polar.c_str(), target.c_str(), calibration, images, &results, nullptr, nullptr);
  }
};

TEST_F(InputFileFaultsHugeFiles, ConfigurationsAreRefused) {
  EXPECT_THROW(run(huge("polar.txt", "type: 1\n"), "board_type: 2"), std::length_error);
  EXPECT_THROW(run("type: 1", huge("target.ini", "board_type: 2\n")), std::length_error);
}

TEST_F(InputFileFaultsHugeFiles, DocumentsAreRefused) {
  EXPECT_THROW(ReadCalibParams(huge("calib.json", "{}"), &calibration), std::length_error);
  EXPECT_THROW(run("type: 1", huge("target.json", "{}")), std::system_error);
}

TEST_F(InputFileFaultsHugeFiles, LineOfAListIsItsEnd) {
  EXPECT_EQ(ReadCalibImagelist(huge("list.txt", "#L R\nnone.png none.png\n"), &images), 0);
  ASSERT_EQ(images.size(), 2U);
  EXPECT_EQ(images[1].size(), 1U);
}

TEST_F(InputFileFaultsHugeFiles, LineOfATableIsRefused) {
  for (const char* name : {"polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"}) folder.write(name, "2\n");
  huge("polyparamirl_x.txt", "1.5\n");
  EXPECT_THROW(ReadTxtPolyParams(folder.path().string(), &calibration), std::length_error);
  EXPECT_THROW(ReadBoardGTFromTxt(huge("board.txt", "1 2 3\n"), &board), std::length_error);
  EXPECT_THROW(ReadBoardGTFromCSV(huge("short.csv", "1,2\n"), &board, false), std::length_error);
}

TEST_F(InputFileFaultsHugeFiles, WhatLiesBehindTheUsedLinesIsNotRead) {
  std::string values;
  for (int k = 0; k < 500; ++k) values += "2.5\n";
  for (const char* name : {"polyparamirl_x.txt", "polyparamirl_y.txt", "polyparamirr_x.txt", "polyparamirr_y.txt"})
    huge(name, values);
  EXPECT_EQ(ReadTxtPolyParams(folder.path().string(), &calibration), 0);
  EXPECT_THAT(calibration.right.poly_x, Each(2.5F));
  EXPECT_EQ(ReadBoardGTFromCSV(huge("board.csv", std::string(10, '\n') + "0,1,2,3,4.5,5\n"), &board, false), 0);
  EXPECT_EQ(board.at(0), cv::Point3f(4.5F, 5.0F, 0.0F));
}

TEST_F(InputFileFaultsHugeFiles, ZerosBehindABinaryCalibrationDecideNothing) {
  const std::string path = folder.file("calib.bin");
  fs::copy_file(RenderedSet::of("ring_320").file("calib.bin"), path);
  fs::resize_file(path, kHuge);
  EXPECT_EQ(LoadCalibrationParamsMulti(path.c_str(), &record, 0), 0);
  EXPECT_EQ(record.entries.size(), 2U);
  EXPECT_THAT(console.out(), HasSubstr("Warning: There is no bin size check for this distortion model combination!\n"));
}

TEST_F(InputFileFaultsHugeFiles, SourcesWithoutAnEndAreRefused) {
  EXPECT_THROW(run("/dev/zero", "board_type: 2"), std::length_error);
  EXPECT_THROW(ReadBoardGTFromTxt("/dev/zero", &board), std::length_error);
  EXPECT_EQ(LoadCalibrationParamsMulti("/dev/zero", &record, 0), polar_status::kNotSupported);
  EXPECT_EQ(ReadCalibImagelist("/dev/zero", &images), polar_status::kInputUnreadable);
}

}  // namespace
