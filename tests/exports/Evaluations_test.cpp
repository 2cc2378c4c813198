// Rules of whole runs, on rendered sets with known truth.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <opencv2/imgcodecs.hpp>

#include "support/RenderedSet.h"

namespace {

using ::testing::HasSubstr;

std::size_t countOf(const std::string& text, const std::string& part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++count;
  return count;
}

const RenderedSet& rings() { return RenderedSet::of("ring_320"); }

constexpr const char* kOff =
    "type: 1\ndy_bias_switch: 0\nfoursixmethod_swithch: 0\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: "
    "0\nspaceRms_switch: 0\n";

TEST(Evaluations, RowDifferencesOfASavedRectifiedPairAreThoseOfTheRun) {
  const TempFolder results;
  const RunOutcome run =
      rings().evaluate(rings().polarWith({{"triangulate_residual_switch", "0"}, {"triangulate_dis_switch", "0"}}),
                       results.path().string());
  ASSERT_EQ(run.status, 0);
  std::filesystem::rename(results.file("0_left_dy.csv"), results.file("first.csv"));
  results.write("list.txt", "#L R\nresult_left\\0_left.png result_right\\0_right.png\n");

  std::vector<PolarResultRecord> again;
  {
    const ConsoleCapture quiet;
    ASSERT_EQ(
        CalRecificationPrecision("dy_bias_switch: 1\ndy_bias_divid: 0.1\ndy_bias_savecsv_swithch: 1",
                                 rings().file("target.ini").c_str(), {}, results.file("list.txt").c_str(), &again),
        0);
  }
  ASSERT_EQ(again.size(), 1U);
  EXPECT_EQ(again[0].dy_means, run.records[0].dy_means);
  EXPECT_EQ(again[0].dy_min, run.records[0].dy_min);
  EXPECT_EQ(again[0].dy_max, run.records[0].dy_max);
  EXPECT_EQ(results.read("0_left_dy.csv"), results.read("first.csv"));
  EXPECT_GT(results.read("first.csv").size(), 1000U);
}

TEST(Evaluations, CompensationStaysOffAfterTheFirstRectifiedPair) {
  const RunOutcome run =
      rings().evaluate(std::string(kOff) + "triangulate_dis_switch: 1\ndy_bias_switch: 1\neccentricity: 1\n" +
                       "TriPoint1_ID: 48\nTriPoint2_ID: 60\nTriPoint3_ID: 200\nTriPoint4_ID: 210\n"
                       "TriPoint1_GT: [0,0,0]\nTriPoint2_GT: [0,0,0]\nTriPoint3_GT: [0,0,0]\nTriPoint4_GT: [0,0,0]");
  ASSERT_EQ(run.records.size(), 2U);
  EXPECT_EQ(countOf(run.out, "use eccentricity!\n"), 2U);
  EXPECT_EQ(countOf(run.out, "ir_left_dis: "), 1U);
  EXPECT_NE(run.records[0].PoseReport[3], 0.0);
  EXPECT_EQ(run.records[1].PoseReport, run.records[0].PoseReport) << "the report of the first pair stays";
}

TEST(Evaluations, CompensationStaysOnWithoutRectification) {
  const RunOutcome run = rings().evaluate(std::string(kOff) + "triangulate_residual_switch: 1\neccentricity: 1\n");
  EXPECT_EQ(countOf(run.out, "use eccentricity!\n"), 4U);
}

TEST(Evaluations, TableSwitchOpensTheCloudOfARectifiedPairOnly) {
  const TempFolder results;
  const RunOutcome alone = rings().evaluate(std::string(kOff) + "allpointssavecsv_swithch: 1", results.path().string());
  EXPECT_EQ(alone.records.size(), 2U);
  EXPECT_TRUE(std::filesystem::is_empty(results.path())) << "alone it starts nothing";
  const RunOutcome run =
      rings().evaluate(std::string(kOff) + "dy_bias_switch: 1\ndy_bias_savecsv_swithch: 1\nallpointssavecsv_swithch: 1",
                       results.path().string());
  ASSERT_EQ(run.records.size(), 2U);
  for (const char* pair : {"0", "1"}) {
    const std::size_t rows = countOf(results.read(std::string(pair) + "_left_dy.csv"), "\n");
    EXPECT_GT(rows, 100U);
    EXPECT_EQ(countOf(results.read(std::string(pair) + "_pointcloud.csv"), "\n"), rows);
  }
}

TEST(Evaluations, EveryLineOnStandardOutputIsFlushed) {
  std::vector<PolarResultRecord> records;
  const ExportedCalibParams calib = rings().calibration();
  const ImagePairList images = rings().images();
  const ConsoleCapture console;
  ASSERT_EQ(CalPolarLinePrecisionOutMat(rings().polarWith({{"eccentricity", "1"}, {"discalswitch", "1"}}).c_str(),
                                        rings().file("target.ini").c_str(), calib, images, &records, nullptr, nullptr),
            0);
  const std::string out = console.out();
  ASSERT_THAT(out, HasSubstr("ir_right_dis: "));
  ASSERT_THAT(out, HasSubstr("icp_nor_rms: "));
  std::vector<std::size_t> ends;
  for (std::size_t at = out.find('\n'); at != std::string::npos; at = out.find('\n', at + 1)) ends.push_back(at + 1);
  EXPECT_EQ(console.outFlushedAt(), ends);
}

TEST(Evaluations, PoseReportTellsTheBoardsDistance) {
  const RunOutcome run = rings().evaluate(std::string(kOff) + "triangulate_residual_switch: 1\neccentricity: 1\n");
  ASSERT_FALSE(run.records.empty());
  const scene::PairTruth truth = scene::pairTruth(rings().scene(), 0);
  const scene::Board& board = rings().scene().board;
  const auto centre = static_cast<std::size_t>((board.rows - 1) / 2 * board.cols + (board.cols - 1) / 2);
  const scene::Point3& point = truth.dots.at(centre).point_left;
  const double distance = std::sqrt(point.x * point.x + point.y * point.y + point.z * point.z);
  EXPECT_NEAR(run.records[0].PoseReport[3], distance, 2e-3 * distance);
}

TEST(Evaluations, FigureOfAFailedFrameIsTheOneOfThePairBefore) {
  const RenderedSet& frames = RenderedSet::of("frame_1280");
  ImagePairList images = frames.images();
  images[0].push_back(cv::Mat(images[0][0].size(), CV_8UC1, cv::Scalar(90)));
  images[1].push_back(images[0][1]);
  std::vector<PolarResultRecord> records;
  const ConsoleCapture quiet;
  const std::string polar = frames.polarWith({{"triangulate_residual_switch", "1"}, {"evaluation", "0"}});
  ASSERT_EQ(CalPolarLinePrecisionOutMat(polar.c_str(), frames.file("target.ini").c_str(), frames.calibration(), images,
                                        &records, nullptr, nullptr),
            0);
  ASSERT_EQ(records.size(), 2U);
  EXPECT_GT(records[0].tri_rms, 0.0);
  EXPECT_EQ(records[1].tri_rms, records[0].tri_rms);
  EXPECT_EQ(records[0].frameValues.size(), 5U);
  EXPECT_TRUE(records[1].frameValues.empty()) << "the row has cleared them, though there is no file for it";
}

TEST(Evaluations, BoardTruthScaledByAThousandthGivesThePredictedErrors) {
  const std::string polar = std::string(kOff) + "triangulate_residual_switch: 1\ndiscalswitch: 1\nspaceRms_switch: 1\n";
  ExportedCalibParams calib = rings().calibration();
  const RunOutcome plain = rings().evaluate(polar, "", calib);
  const BoardGroundTruth board = calib.boardPoints;
  for (cv::Point3f& point : calib.boardPoints) point *= 1.001F;
  const RunOutcome scaled = rings().evaluate(polar, "", calib);
  ASSERT_EQ(plain.records.size(), 2U);
  ASSERT_EQ(scaled.records.size(), 2U);
  const auto& before = plain.records[0].pairPoints;
  const auto& after = scaled.records[0].pairPoints;
  ASSERT_EQ(before.size(), after.size());
  double square_sum = 0.0;
  std::size_t count = 0;
  for (std::size_t i = 0; i < before.size(); i += 7)
    for (std::size_t j = 0; j < before[i].dis_errors.size(); j += 5) {
      const auto id_i = static_cast<std::size_t>(before[i].id);
      const auto id_j = static_cast<std::size_t>(before[i].dis_errors[j].first);
      const double length = cv::norm(board[id_i] - board[id_j]);
      ASSERT_NEAR(after[i].dis_errors[j].second, before[i].dis_errors[j].second - 0.001 * length, 2e-4);
    }
  for (const auto& point : before)
    for (const auto& [id, error] : point.dis_errors) {
      const double length = cv::norm(board[static_cast<std::size_t>(point.id)] - board[static_cast<std::size_t>(id)]);
      square_sum += (error - 0.001 * length) * (error - 0.001 * length);
      ++count;
    }
  EXPECT_NEAR(scaled.records[0].dis_rms, std::sqrt(square_sum / static_cast<double>(count)), 1e-3);
  EXPECT_GT(scaled.records[0].space_rms, plain.records[0].space_rms);
}

TEST(Evaluations, TriangulatedPointsErrByWhatTheCentresExplain) {
  scene::PresetOptions clean;
  clean.read_noise = 0.0;
  clean.pairs = 1;
  const RenderedSet set(*scene::makePreset("ring_640_small", clean));
  const RunOutcome run = set.evaluate(set.polarText());
  ASSERT_EQ(run.records.size(), 1U);
  const scene::PairTruth truth = scene::pairTruth(set.scene(), 0);
  const ExportedCalibParams calib = set.calibration();
  const double focal = calib.left.intrinsics[0];
  const double baseline = std::abs(calib.extrinsics[3]);
  double measured = 0.0;
  double predicted = 0.0;
  for (const TriPointRecord& point : run.records[0].pairPoints) {
    const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(point.id));
    // A disparity error d moves a point along its ray by z d / (f b) of its range.
    const double disparity_error = (point.left_x - dot.pixel_left.x) - (point.right_x - dot.pixel_right.x);
    const double range = dot.point_left.z;
    predicted += std::pow(range * range / (focal * baseline) * disparity_error, 2.0);
    measured += std::pow(point.z - dot.point_left.z, 2.0);
  }
  const auto count = static_cast<double>(run.records[0].pairPoints.size());
  measured = std::sqrt(measured / count);
  predicted = std::sqrt(predicted / count);
  std::printf("depth error %.5f board units rms, explained by the centres: %.5f\n", measured, predicted);
  EXPECT_NEAR(measured, predicted, 0.2 * predicted + 1e-4);
  EXPECT_LT(run.records[0].space_rms, 2.0 * predicted);
  EXPECT_NEAR(run.records[0].icp_nor_rms, run.records[0].space_rms, 1e-4);
}

struct EndingStatus {
  const char* name;
  std::vector<std::pair<std::string, std::string>> polar;
  std::int32_t status;
  const char* text;
};
class EvaluationsOfTriangulation : public ::testing::TestWithParam<EndingStatus> {};

TEST_P(EvaluationsOfTriangulation, EndTheRunWhereTheSwitchSaysSo) {
  auto lines = GetParam().polar;
  lines.emplace_back("discalsave", "1");
  const RunOutcome run = rings().evaluate(rings().polarWith(lines));
  EXPECT_EQ(run.status, GetParam().status);
  EXPECT_EQ(run.error_text, GetParam().text);
  EXPECT_TRUE(run.records.empty());
  lines.back().second = "0";
  EXPECT_EQ(rings().evaluate(rings().polarWith(lines)).status, polar_status::kNoResults);
}

INSTANTIATE_TEST_SUITE_P(
    Statuses, EvaluationsOfTriangulation,
    ::testing::Values(EndingStatus{"nothing measured", {{"evalu_model", "2"}}, polar_status::kTooFewShared, ""},
                      EndingStatus{"first point",
                                   {{"TriPoint1_ID", "5000"}},
                                   polar_status::kPointMissing,
                                   "Fail detect foursix method point1"},
                      EndingStatus{"fourth point",
                                   {{"TriPoint4_ID", "5000"}},
                                   polar_status::kPointMissing,
                                   "Fail detect foursix method point4"}));

TEST(Evaluations, OutlierEndsTheRunAndIsNamed) {
  ExportedCalibParams calib = rings().calibration();
  calib.boardPoints.at(100).x += 8.0F;
  const RunOutcome run = rings().evaluate(rings().polarWith({{"discalsave", "1"}}), "", calib);
  EXPECT_EQ(run.status, polar_status::kOutlier);
  EXPECT_EQ(run.error_text, "Failed in board check!Find outlier id: 100;total num of detect points: 255");
  EXPECT_THAT(run.out, ::testing::HasSubstr("**********find maximum outlier**********\n"));
}

TEST(Evaluations, CropMovesThePrincipalPointAgainWithEachPair) {
  // The same pair twice: without the accumulation the second pair's figures would repeat the first's.
  ImagePairList images = rings().images();
  for (auto& list : images) list = {list[0], list[0]};
  std::vector<PolarResultRecord> records;
  const ConsoleCapture quiet;
  ASSERT_EQ(CalPolarLinePrecisionOutMat(
                (std::string(kOff) + "triangulate_residual_switch: 1\ndiscalswitch: 1\ncrop: 1\ncropped_cols: 316\n"
                                     "cropped_rows: 252\n")
                    .c_str(),
                rings().file("target.ini").c_str(), rings().calibration(), images, &records, nullptr, nullptr),
            0);
  ASSERT_EQ(records.size(), 2U);
  EXPECT_EQ(records[0].pairPoints[5].left_x, records[1].pairPoints[5].left_x);
  EXPECT_NE(records[0].pairPoints[5].x, records[1].pairPoints[5].x);
  const double focal = rings().calibration().left.intrinsics[0];
  const double moved =
      records[1].pairPoints[5].x / records[1].pairPoints[5].z - records[0].pairPoints[5].x / records[0].pairPoints[5].z;
  EXPECT_NEAR(moved, 2.0 / focal, 0.5 / focal) << "two columns go on each side of the crop";
}

TEST(Evaluations, DetectionOnlyModeGivesTheSameRowDifferences) {
  const std::string polar = std::string(kOff) + "dy_bias_switch: 1\n";
  const RunOutcome full = rings().evaluate(polar);
  const RunOutcome detection = rings().evaluate(polar + "evalu_model: 1\n");
  ASSERT_EQ(detection.records.size(), 2U);
  EXPECT_EQ(detection.records[1].dy_means, full.records[1].dy_means);
  EXPECT_TRUE(detection.records[1].detect_canvas.empty());
  EXPECT_FALSE(full.records[1].detect_canvas.empty());
}

TEST(Evaluations, FormsOfTheTargetConfigurationGiveTheSameFigures) {
  const std::string polar = std::string(kOff) + "dy_bias_switch: 1\n";
  std::vector<double> means;
  for (const char* name : {"target.ini", "target.json", "target.yml"}) {
    std::vector<PolarResultRecord> records;
    const ConsoleCapture quiet;
    ASSERT_EQ(CalPolarLinePrecisionOutMat(polar.c_str(), rings().file(name).c_str(), rings().calibration(),
                                          rings().images(), &records, nullptr, nullptr),
              0)
        << name;
    means.push_back(records.at(0).dy_means);
  }
  EXPECT_EQ(means[0], means[1]);
  EXPECT_EQ(means[0], means[2]);
}

/// A board, nothing, a board: what a pair that is given up does to numbers and names.
ImagePairList withABlankPair() {
  ImagePairList images = rings().images();
  for (auto& list : images) list.insert(list.begin() + 1, cv::Mat(list[0].size(), CV_8UC1, cv::Scalar(90)));
  return images;
}

std::vector<std::string> firstCells(const std::string& table) {
  std::vector<std::string> cells;
  for (std::size_t at = table.find("Images_num_: "); at != std::string::npos; at = table.find("Images_num_: ", at + 1))
    cells.push_back(table.substr(at + 13, 1));
  return cells;
}

TEST(Evaluations, PairGivenUpLeavesAGapInTheRowsAndCountsInTheProgress) {
  const TempFolder results;
  std::vector<PolarResultRecord> records;
  std::vector<float> reported;
  const ProgressCallback progress = [&](float value) {
    reported.push_back(value);
    return true;
  };
  const ConsoleCapture quiet;
  const std::string polar = std::string(kOff) + "evaluation: 1\ndy_bias_switch: 1\ndy_bias_savecsv_swithch: 1\n";
  ASSERT_EQ(CalPolarLinePrecisionOutMat(polar.c_str(), rings().file("target.ini").c_str(), rings().calibration(),
                                        withABlankPair(), &records, &progress, results.path().c_str()),
            0);
  EXPECT_EQ(records.size(), 2U);
  EXPECT_EQ(firstCells(results.read("align_data_0.csv")), (std::vector<std::string>{"1", "3"}));
  EXPECT_EQ(reported[reported.size() - 2], 3.0F * 33.0F + 0.003F) << "the lost pair counts";
  EXPECT_TRUE(results.has("2_left_dy.csv")) << "and so does its number";
}

TEST(Evaluations, PairGivenUpOfARectificationRunDoesNotCount) {
  const TempFolder results;
  const ImagePairList images = withABlankPair();
  for (std::size_t pair = 0; pair < 3; ++pair)
    for (std::size_t side = 0; side < 2; ++side)
      cv::imwrite(results.file(std::to_string(side) + std::to_string(pair) + ".png"), images[side][pair]);
  results.write("list.txt", "#L R\n00.png 10.png\n01.png 11.png\n02.png 12.png\n");
  std::vector<PolarResultRecord> records;
  const ConsoleCapture console;
  ASSERT_EQ(
      CalRecificationPrecision("evaluation: 1\ndy_bias_switch: 1\ndy_bias_savecsv_swithch: 1",
                               rings().file("target.ini").c_str(), {}, results.file("list.txt").c_str(), &records),
      0);
  EXPECT_EQ(records.size(), 2U);
  EXPECT_EQ(firstCells(results.read("align_data.csv")), (std::vector<std::string>{"1", "3"}));
  EXPECT_THAT(console.out(), HasSubstr("--------LoadImageFrames ------2\t"));
  EXPECT_THAT(console.out(), ::testing::Not(HasSubstr("--------LoadImageFrames ------3\t")));
  EXPECT_TRUE(results.has("1_left_dy.csv")) << "the pair after takes the lost one's number";
  EXPECT_FALSE(results.has("2_left_dy.csv"));
}

TEST(Evaluations, UnknownModelLeavesEveryPairUnwarped) {
  const RunOutcome run = rings().evaluate(std::string(kOff) + "type: 5\ndy_bias_switch: 1\n");
  ASSERT_EQ(run.records.size(), 2U);
  EXPECT_NE(run.records[0].dy_means, run.records[1].dy_means) << "the second pair is not the first one again";
  EXPECT_EQ(run.out.find("Virtual camera"), std::string::npos);
}

TEST(Evaluations, PolyRunNamesItsStages) {
  const RenderedSet& set = RenderedSet::of("poly_1920");
  const RunOutcome run = set.evaluate(set.polarWith({{"dy_bias_switch", "0"}, {"foursixmethod_swithch", "0"}}));
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(countOf(run.out, "CalTriangulateRepPOLY\n"), 2U);
  EXPECT_EQ(countOf(run.out, "distortion model: POLY\n"), 2U);
  EXPECT_EQ(run.out.find("Brown"), std::string::npos);
  EXPECT_GT(run.records.at(0).space_rms, 0.0);
}

}  // namespace
