// The order of a pair's steps, told by the lines and the files of a run.
#include <gtest/gtest.h>

#include <filesystem>

#include "support/ConsoleLines.h"
#include "support/MemoryRun.h"

namespace {

using console_lines::stepsOf;

using Steps = std::vector<std::string>;

Steps together(std::initializer_list<Steps> parts) {
  Steps all;
  for (const Steps& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

const Steps kLoaded = {"--------Load Parameters OK", "--------Initialization Parameters OK"};
/// A target is set up with the board's points, then each image is told of.
const Steps kMeasured = {"Calibration board GT mode", "detect point num :", "detect point num :"};
const Steps kCompensated = {"Calibration board GT mode",
                            "detect point num :",
                            "use eccentricity!",
                            "ir_left_rx:",
                            "ir_left_ry:",
                            "ir_left_rz:",
                            "ir_left_dis:",
                            "detect point num :",
                            "use eccentricity!",
                            "ir_right_rx:",
                            "ir_right_ry:",
                            "ir_right_rz:",
                            "ir_right_dis:"};
const Steps kCompared = {"dis_rms:",   "zero_dis:",  "nor_rms:",   "icp_rx:",      "icp_ry:", "icp_rz:",
                         "icp_x_rms:", "icp_y_rms:", "icp_z_rms:", "icp_nor_rms:", "gt_rms:"};
const Steps kRectified = {" Virtual camera cx:", " Virtual camera cy:", " Virtual camera f:"};

Steps finished(int number) { return {"--------LoadImageFrames ------" + std::to_string(number)}; }

TEST(RunOrder, ImageSetTriangulatesRectifiesJudgesTheRectifiedPairAndThenTheBoard) {
  MemoryRun two(MemoryRun::twoPairs());
  const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", "1"}}));
  ASSERT_EQ(run.status, 0);
  const Steps later = together({kRectified, kMeasured, kMeasured, {"distortion model: Brown"}, kMeasured});
  EXPECT_EQ(stepsOf(run.out), together({kLoaded,
                                        {"CalTriangulateRepBrown"},
                                        kCompensated,
                                        kCompared,
                                        later,
                                        finished(1),
                                        {"CalTriangulateRepBrown"},
                                        kMeasured,
                                        kCompared,
                                        later,
                                        finished(2)}));
}

TEST(RunOrder, ImageSetOfPolynomialLensesNamesItsOwnSteps) {
  const RenderedSet set(small_scene::polynomial());
  MemoryRun one(set);
  const RunOutcome run = one.run(set.polarText());
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(stepsOf(run.out), together({kLoaded,
                                        {"CalTriangulateRepPOLY"},
                                        kMeasured,
                                        kCompared,
                                        kRectified,
                                        kMeasured,
                                        kMeasured,
                                        {"distortion model: POLY"},
                                        kMeasured,
                                        finished(1)}));
}

TEST(RunOrder, FrameMeasuresItsBoardAndThenTellsItsDistances) {
  MemoryRun two(MemoryRun::twoFrames());
  const RunOutcome run = two.run(two.set.polarWith({{"eccentricity", "1"}}));
  ASSERT_EQ(run.status, 0);
  // The second target, which finds the frame's points, has no board of the caller's.
  const Steps frame =
      together({kCompensated, {"Calibration board Normal mode", "1---2:", "1---8:", "3---6:", "4---5:", "2---7:"}});
  EXPECT_EQ(stepsOf(run.out), together({kLoaded, frame, finished(1), frame, finished(2)}));
}

/// A rendered pair of images that need no rectification, on disk.
struct RunOrderRectifiedOnDisk : ::testing::Test {
  RenderedSet set{small_scene::rectified()};
  RectifiedParams geometry;
  std::vector<PolarResultRecord> records;
  TempFolder folder;

  RunOrderRectifiedOnDisk() {
    for (const cv::Point3f& point : set.calibration().boardPoints) geometry.boardPoints.emplace_back(point);
    for (const char* name : {"list.txt", "left_0.png", "right_0.png"})
      std::filesystem::copy_file(set.file(name), folder.file(name));
  }
  std::string run(const std::string& polar) {
    const ConsoleCapture console;
    CalRecificationPrecision(polar.c_str(), set.file("target.ini").c_str(), geometry, folder.file("list.txt").c_str(),
                             &records);
    return console.out();
  }
};

TEST_F(RunOrderRectifiedOnDisk, PairIsMeasuredForItsRowsAndForItsCloud) {
  const std::string out = run(set.polarText());
  ASSERT_EQ(records.size(), 1U);
  EXPECT_EQ(stepsOf(out), together({kLoaded, kMeasured, kMeasured, finished(1)}));
}

TEST_F(RunOrderRectifiedOnDisk, RowsComeBeforeTheCloud) {
  run(set.polarWith({{"PolPoint1_ID", "5000"}}));
  EXPECT_TRUE(records.empty()) << "the cloud gave the pair up";
  EXPECT_TRUE(folder.has("0_left_dy.csv"));
}

TEST(RunOrder, RowsOfAnImageSetComeBeforeItsCloudAndThisBeforeTheBoardCheck) {
  MemoryRun two(MemoryRun::twoPairs());
  const RunOutcome run = two.run(two.set.polarWith({{"PolPoint1_ID", "5000"}}));
  EXPECT_TRUE(run.records.empty()) << "the cloud gave the pairs up";
  EXPECT_TRUE(two.folder.has("0_left_dy.csv"));
  EXPECT_TRUE(two.folder.has("1_left_dy.csv"));
  EXPECT_EQ(run.out.find("distortion model: Brown"), std::string::npos);
}

struct SideCase {
  const char* name;
  std::size_t blank;
  std::size_t told;  ///< Images whose count is printed.
};
class RunOrderBlankImage : public ::testing::TestWithParam<SideCase> {};

TEST_P(RunOrderBlankImage, EndsTheMeasurementOfItsPair) {
  MemoryRun two(MemoryRun::twoPairs());
  two.blank(GetParam().blank, 0);
  const RunOutcome run = two.run(two.set.polarText());
  EXPECT_EQ(run.status, polar_status::kTooFewDetected);
  Steps expected = together({kLoaded, {"CalTriangulateRepBrown"}, {"Calibration board GT mode"}});
  expected.insert(expected.end(), GetParam().told, "detect point num :");
  EXPECT_EQ(stepsOf(run.out), expected);
}

INSTANTIATE_TEST_SUITE_P(Sides, RunOrderBlankImage, ::testing::Values(SideCase{"Left", 0, 1}, SideCase{"Right", 1, 2}),
                         [](const auto& side) { return side.param.name; });

}  // namespace
