#include <PolarLinePrecision.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <opencv2/imgcodecs.hpp>

#include "support/RenderedSet.h"

namespace {

using ::testing::HasSubstr;

/// Two grey pairs in memory and on disk that finish at once, as every evaluation is off.
struct RunExports : ::testing::Test {
  TempFolder folder;
  ConsoleCapture console;
  std::string polar = "evaluation: 1\nspaceRms_switch: 0";
  ImagePairList images = ImagePairList(2, std::vector<cv::Mat>(2, cv::Mat(30, 40, CV_8UC1, cv::Scalar(90))));
  std::vector<PolarResultRecord> results;
  std::vector<float> reported;
  float stop_at = 1e9F;
  ProgressCallback progress = [this](float value) {
    reported.push_back(value);
    return !(value >= stop_at);
  };

  RunExports() {
    cv::imwrite(folder.file("a.png"), images[0][0]);
    folder.write("list.txt", "#L R\na.png a.png\na.png a.png\n");
    folder.write("calib.json", R"({"IR_L": {"Fx": 1}, "IR_R": {"Fx": 1}, "RGB": {"Fx": 1}})");
  }
  std::int32_t inMemory(const ProgressCallback* callback, const char* result_folder) {
    return CalPolarLinePrecisionOutMat(polar.c_str(), "board_type: 2", {}, images, &results, callback, result_folder);
  }
  std::int32_t onDisk(const std::string& list) {
    return CalPolarLinePrecision(polar.c_str(), "board_type: 2", folder.file("calib.json").c_str(), list.c_str(),
                                 &results);
  }
};

TEST_F(RunExports, NullCallbackAndFolderWriteNothingButReturnTheRecords) {
  polar += "\nsavepolarline: 1\ndy_bias_savecsv_swithch: 1\nallpointssavecsv_swithch: 1";
  const std::filesystem::path before = std::filesystem::current_path();
  const TempFolder working;
  std::filesystem::current_path(working.path());
  const std::int32_t status = inMemory(nullptr, nullptr);
  std::filesystem::current_path(before);
  EXPECT_EQ(status, 0);
  EXPECT_EQ(results.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_empty(working.path()));
}

TEST_F(RunExports, ProgressIsReportedFromTheFirstToTheLast) {
  EXPECT_EQ(inMemory(&progress, folder.path().c_str()), 0);
  EXPECT_EQ(reported, (std::vector<float>{0.001F, 0.002F, 0.003F, 49.503F, 99.003F, 100.0F}));
  EXPECT_TRUE(folder.has("align_data_0.csv"));
  EXPECT_THAT(console.out(), ::testing::StartsWith("--------Load Parameters OK\t----time:"));
  EXPECT_THAT(console.out(), HasSubstr("\t-----callback:0.045\n"));
}

struct Stop {
  float at;
  const char* text;
  std::size_t records;
};
struct RunExportsStopped : RunExports, ::testing::WithParamInterface<Stop> {};

TEST_P(RunExportsStopped, EndsWith35AndItsText) {
  stop_at = GetParam().at;
  results.resize(1);
  EXPECT_EQ(inMemory(&progress, nullptr), polar_status::kStoppedByCallback);
  EXPECT_EQ(errorText(), GetParam().text);
  EXPECT_EQ(results.size(), GetParam().records);
  EXPECT_EQ(reported.back(), GetParam().at);
}

INSTANTIATE_TEST_SUITE_P(PairSteps, RunExportsStopped,
                         ::testing::Values(Stop{0.001F, "Callback Terminated", 1},
                                           Stop{0.002F, "Callback Terminated", 1},
                                           Stop{0.003F, "Callback Terminated!", 1},
                                           Stop{49.503F, "Callback Terminated!", 1},
                                           Stop{100.0F, "Callback Terminated", 2}));

TEST_F(RunExports, EmptyCallbackFunctionRaises) {
  const ProgressCallback none;
  EXPECT_THROW(inMemory(&none, nullptr), std::bad_function_call);
}

class RunExportsListsInMemory : public RunExports, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(RunExportsListsInMemory, OtherThanTwoGiveMinusEight) {
  images.resize(GetParam());
  EXPECT_EQ(inMemory(nullptr, nullptr), polar_status::kImages);
  EXPECT_EQ(errorText(), "Read image Error!");
  EXPECT_TRUE(results.empty());
}

INSTANTIATE_TEST_SUITE_P(Counts, RunExportsListsInMemory, ::testing::Values(0U, 1U, 3U));

TEST_F(RunExports, FailureLeavesTheCallersResults) {
  results.resize(5);
  images[1][1] = cv::Mat();
  EXPECT_EQ(inMemory(nullptr, nullptr), polar_status::kImages);
  EXPECT_EQ(results.size(), 5U);
}

TEST_F(RunExports, RunWithoutARecordReturns8AndLeavesTheResults) {
  images[0].clear();
  images[1].clear();
  results.resize(5);
  EXPECT_EQ(inMemory(&progress, nullptr), polar_status::kNoResults);
  EXPECT_EQ(results.size(), 5U);
  EXPECT_EQ(reported.back(), 100.0F);
}

TEST_F(RunExports, FolderOfTheListTakesTheResults) {
  EXPECT_EQ(onDisk(folder.file("list.txt")), 0);
  EXPECT_EQ(results.size(), 2U);
  EXPECT_TRUE(folder.has("align_data_0.csv"));
}

TEST_F(RunExports, FileExportHasNoLineOfLoadedParameters) {
  EXPECT_EQ(onDisk(folder.file("list.txt")), 0);
  EXPECT_THAT(console.out(), ::testing::Not(HasSubstr("Load Parameters OK")));
  EXPECT_THAT(console.out(), HasSubstr("--------Initialization Parameters OK\t----time:"));
}

TEST_F(RunExports, BadConfigurationEndsEachExportBeforeItsFirstLine) {
  polar = "PolPoint4_GT: [1,2,3,4]";
  results.resize(5);
  const std::string list = folder.file("list.txt");
  EXPECT_EQ(onDisk(list), polar_status::kBadGroundTruthPoint);
  EXPECT_EQ(inMemory(&progress, nullptr), polar_status::kBadGroundTruthPoint);
  EXPECT_EQ(CalRecificationPrecision(polar.c_str(), "board_type: 2", {}, list.c_str(), &results),
            polar_status::kBadGroundTruthPoint);
  EXPECT_EQ(console.out(), "");
  EXPECT_TRUE(reported.empty());
  EXPECT_EQ(results.size(), 5U);
}

TEST_F(RunExports, PairsThatWereGivenUpLeaveTheText) {
  const std::string calib = folder.file("gone.json");
  CalTempCompensateCoeff("x_y: 0", "", calib.c_str(), "");
  polar = "triangulate_residual_switch: 1\nspaceRms_switch: 0";
  for (auto& list : images) list.assign(2, cv::Mat(300, 400, CV_8UC1, cv::Scalar(90)));
  EXPECT_EQ(inMemory(nullptr, nullptr), polar_status::kNoResults);
  EXPECT_EQ(errorText(), "Fail to read calib result file");
}

TEST_F(RunExports, ListPathWithoutASeparatorIsNoFolderForResults) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  const std::int32_t unsaved = onDisk("list.txt");
  polar += "\nsavepolarline: 1";
  const std::int32_t saved = onDisk("list.txt");
  std::filesystem::current_path(before);
  EXPECT_EQ(unsaved, 0);
  EXPECT_EQ(saved, polar_status::kResultFolder);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 3) << "nothing is written";
}

TEST_F(RunExports, ListPathWithBackslashesWorks) {
  std::string list = folder.file("list.txt");
  for (char& c : list)
    if (c == '/') c = '\\';
  EXPECT_EQ(onDisk(list), 0);
  EXPECT_TRUE(folder.has("align_data_0.csv"));
}

TEST_F(RunExports, FrameSwitchPlaysNoPartInTheFileExport) {
  polar += "\nframe_work: 1";
  EXPECT_EQ(onDisk(folder.file("list.txt")), 0);
  EXPECT_FALSE(folder.has("frame_result.csv"));
  EXPECT_EQ(folder.read("align_data_0.csv"),
            "id \nImages_num_: 1_PolarVersion_: 1.3.3\nImages_num_: 2_PolarVersion_: 1.3.3\n\n");
}

TEST_F(RunExports, FrameSwitchChoosesTheFrameRunInMemory) {
  polar = "evaluation: 1\nframe_work: 1\nFrame_ID_DIS: [[1,2]]";
  images[0].clear();
  images[1].clear();
  EXPECT_EQ(inMemory(nullptr, folder.path().c_str()), polar_status::kNoResults);
  EXPECT_EQ(folder.read("frame_result.csv"), "id ,1_2\n\n");
}

TEST_F(RunExports, RectificationRunReadsItsListAfterItsFirstLine) {
  EXPECT_EQ(CalRecificationPrecision(polar.c_str(), "board_type: 2", {}, folder.file("none.txt").c_str(), &results),
            polar_status::kImages);
  EXPECT_THAT(console.out(), ::testing::StartsWith("--------Load Parameters OK"));
  EXPECT_THAT(console.err(), HasSubstr("to read failed!"));
  EXPECT_EQ(errorText(), "Read image Error!");
  EXPECT_TRUE(folder.has("align_data.csv"));
}

TEST_F(RunExports, RectificationRunPrintsItsFirstLineBeforeTheListFails) {
  std::streambuf* const kept = std::cerr.rdbuf(std::cout.rdbuf());
  CalRecificationPrecision(polar.c_str(), "board_type: 2", {}, folder.file("none.txt").c_str(), &results);
  std::cerr.rdbuf(kept);
  const std::string both = console.out();
  EXPECT_LT(both.find("Load Parameters OK"), both.find("to read failed!"));
  EXPECT_LT(both.find("to read failed!"), both.find("Initialization Parameters OK"));
}

TEST_F(RunExports, RectificationRunGivesRecords) {
  EXPECT_EQ(CalRecificationPrecision(polar.c_str(), "board_type: 2", {}, folder.file("list.txt").c_str(), &results), 0);
  EXPECT_EQ(results.size(), 2U);
}

TEST_F(RunExports, FrameSwitchEmptiesTheRowsOfARectificationRun) {
  polar = "evaluation: 1\nspaceRms_switch: 1\nframe_work: 1\nFrame_ID_DIS: [[1,2]]";
  EXPECT_EQ(CalRecificationPrecision(polar.c_str(), "board_type: 2", {}, folder.file("list.txt").c_str(), &results), 0);
  EXPECT_EQ(results.size(), 2U);
  EXPECT_EQ(folder.read("align_data.csv"),
            "id \nImages_num_: 1_PolarVersion_: 1.3.3\nImages_num_: 2_PolarVersion_: 1.3.3\n\n");
  EXPECT_FALSE(folder.has("frame_result.csv"));
}

TEST_F(RunExports, TemperatureExportLeavesNoTrace) {
  const std::string before = errorText();
  EXPECT_EQ(
      CalTempCompensateCoeff(polar.c_str(), "", folder.file("calib.json").c_str(), folder.file("list.txt").c_str()), 0);
  EXPECT_EQ(errorText(), before);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 3);
}

TEST_F(RunExports, TemperatureExportNamesTheInputThatFailed) {
  const std::string calib = folder.file("calib.json");
  const std::string list = folder.file("list.txt");
  EXPECT_EQ(CalTempCompensateCoeff("PolPoint2_GT: [1]", "", calib.c_str(), list.c_str()), -1);
  EXPECT_EQ(errorText(), "");
  EXPECT_EQ(CalTempCompensateCoeff("x_y: 0", "", folder.file("none.json").c_str(), folder.file("none.txt").c_str()),
            -2);
  EXPECT_EQ(errorText(), "Fail to read calib result file");
  EXPECT_THAT(console.err(), ::testing::Not(HasSubstr("to read failed!"))) << "the list is not read any more";
  EXPECT_EQ(CalTempCompensateCoeff("x_y: 0", "", calib.c_str(), folder.file("none.txt").c_str()), -3);
  EXPECT_EQ(errorText(), "");
}

}  // namespace
