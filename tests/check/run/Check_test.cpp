#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

#include "ExportRun.h"
#include "PolarLinePrecision/Status.h"
#include "support/CopiedSet.h"
#include "support/DocumentCheck.h"
#include "support/FolderContents.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

void documentIsValid(const Check& check) { DocumentCheck::ofCheck().parsed(toJson(check)); }

/// Row differences, cloud, distances and all that a raw pair can yield; a failed triangulation gives its pair up.
void switchAllOn(const CopiedSet& set) {
  set.append("polar.txt",
             "\ndiscalsave: 0\ntriangulate_residual_switch: 1\ntriangulate_dis_switch: 1\ndiscalswitch: 1\n"
             "dy_bias_switch: 1\nfoursixmethod_swithch: 1\nallpoints_calc_switch: 1\nspaceRms_switch: 1\n");
}

void equalsTheExport(const CopiedSet& set, std::size_t finished) {
  const Check check = set.check();
  const RunOutcome wanted = export_run::of(set);
  EXPECT_EQ(export_run::difference(check, wanted.records), "");
  EXPECT_EQ(check.finished(), finished);
  EXPECT_EQ(check.status.code, wanted.status);
  documentIsValid(check);
}

TEST(CheckFigures, AreTheExports) {
  const CopiedSet set;
  switchAllOn(set);
  equalsTheExport(set, 2);
}

TEST(CheckFigures, AreTheExportsWithCompensation) {
  const CopiedSet set;
  switchAllOn(set);
  set.append("polar.txt", "eccentricity: 1\n");
  equalsTheExport(set, 2);
}

scene::Scene fisheye() {
  scene::Scene scene = small_scene::of(scene::fisheyeRig(small_scene::kDotSize), scene::bigDotBoard(7, 9));
  scene.settings.type = 2;
  return scene;
}

scene::Scene tenBits() {
  scene::Scene scene = small_scene::circles();
  scene.optics.bits = 10;
  return scene;
}

struct OtherScene {
  const char* name;
  scene::Scene (*make)();
  const char* model;
};

class CheckFiguresOf : public ::testing::TestWithParam<OtherScene> {};

TEST_P(CheckFiguresOf, AreTheExports) {
  const RenderedSet rendered(GetParam().make());
  const CopiedSet set(rendered);
  switchAllOn(set);
  equalsTheExport(set, 1);
  const Check check = set.check();
  EXPECT_EQ(check.cameras.model, GetParam().model);
  EXPECT_TRUE(check.pairs.at(0).figure("dy_means")->is_own);
  EXPECT_TRUE(check.pairs.at(0).figure("tri_rms")->is_own);
}

INSTANTIATE_TEST_SUITE_P(Sets, CheckFiguresOf,
                         ::testing::Values(OtherScene{"Fisheye", fisheye, "fisheye"},
                                           OtherScene{"Polynomial", small_scene::polynomial, "poly"},
                                           OtherScene{"TenBits", tenBits, "brown8"}),
                         [](const auto& tested) { return tested.param.name; });

scene::Scene bySearch() {
  scene::Scene scene = small_scene::circles();
  scene.settings.id_method = 1;
  return scene;
}

/// The edge binarisation keeps a fixed share of all pixels: few dots, and nothing else that has an edge.
scene::Scene byEdges() {
  scene::Scene scene = small_scene::circles();
  scene.settings.bin_method = 1;
  scene.optics.surround = scene.optics.paper;
  scene.optics.texture = 0.0;
  return scene;
}

scene::Scene byThirdBinarisation() {
  scene::Scene scene = small_scene::circles();
  scene.settings.bin_method = 2;
  return scene;
}

scene::Scene rings(scene::BoardKind kind) {
  return small_scene::of(scene::brownRig({640, 512, 60.0}), scene::largeRingBoard(kind));
}

scene::Scene inColour() {
  scene::Scene scene = small_scene::dots();
  scene.optics.channels = 3;
  return scene;
}

class CheckFiguresFoundOtherwise : public ::testing::TestWithParam<OtherScene> {};

/// Wherever the numbers of the dots come from. The residuals want grey pictures, and the distances of all dots end at
/// those that big rings cover.
TEST_P(CheckFiguresFoundOtherwise, AreTheExports) {
  const RenderedSet rendered(GetParam().make());
  const CopiedSet set(rendered);
  switchAllOn(set);
  set.append("polar.txt", "discalswitch: 0\ntriangulate_residual_switch: 0\n");
  equalsTheExport(set, 1);
  EXPECT_TRUE(set.check().pairs.at(0).figure("dy_means")->is_own);
}

INSTANTIATE_TEST_SUITE_P(
    Sets, CheckFiguresFoundOtherwise,
    ::testing::Values(OtherScene{"Search", bySearch, ""}, OtherScene{"Edges", byEdges, ""},
                      OtherScene{"ThirdBinarisation", byThirdBinarisation, ""},
                      OtherScene{"BigRings", [] { return rings(scene::BoardKind::kBigRings); }, ""},
                      OtherScene{"MixedRings", [] { return rings(scene::BoardKind::kMixedRings); }, ""},
                      OtherScene{"Colour", inColour, ""}),
    [](const auto& tested) { return tested.param.name; });

TEST(CheckFigures, AreTheExportsBehindAPairGivenUp) {
  const CopiedSet set;
  switchAllOn(set);
  set.write("list.txt", "#L R\nleft_0.png right_0.png\ngrey.png right_1.png\nleft_1.png right_1.png\n");
  const cv::Mat seen = set.picture("left_0.png");
  set.write("grey.png", cv::Mat(seen.size(), seen.type(), cv::Scalar(90)));
  equalsTheExport(set, 2);
  const PairCheck given_up = set.check().pairs.at(1);
  EXPECT_FALSE(given_up.finished);
  EXPECT_EQ(given_up.reason.code, polar_status::kTooFewDetected);
  EXPECT_EQ(given_up.reason.side, "left");
  EXPECT_THAT(given_up.reason.text, StartsWith("0 dots were found in the left picture; 6 are needed: "));
}

TEST(CheckFigures, AreTheExportsWhereOneIsCarried) {
  // The frames are finished even if nothing could be measured: the record repeats the frame before.
  const CopiedSet set(MemoryRun::twoFrames());
  set.blank("left_1.png");
  equalsTheExport(set, 2);
  const Check check = set.check();
  EXPECT_TRUE(check.pairs.at(0).figure("tri_rms")->is_own);
  EXPECT_TRUE(check.pairs.at(1).figure("tri_rms")->is_carried);
  const auto document = DocumentCheck::ofCheck().parsed(toJson(check));
  EXPECT_TRUE(document["pairs"][1]["figures"]["tri_rms"].is_null());
  // Not frameValues: the library clears them behind each frame.
  EXPECT_EQ(document["pairs"][1]["carried"], nlohmann::json({"tri_rms", "tri_mean", "tri_min", "tri_max"}));
}

TEST(CheckFigures, AreTheExportsOfFrames) {
  const CopiedSet set(MemoryRun::twoFrames());
  equalsTheExport(set, 2);
}

TEST(CheckFigures, AreTheExportsOfRectifiedPairs) {
  static const RenderedSet rendered(small_scene::rectified());
  const CopiedSet set(rendered);
  const CopiedSet exported(rendered);  // The export writes beside the list.
  RectifiedParams geometry;
  char comma = 0;
  const std::string numbers = set.read("rectified.txt");  // Below a line of comment.
  std::istringstream(numbers.substr(numbers.find('\n'))) >> geometry.focal >> comma >> geometry.baseline >> comma >>
      geometry.cx >> comma >> geometry.cy >> comma >> geometry.disparity_offset;
  std::vector<PolarResultRecord> records;
  {
    const ConsoleCapture quiet;
    BoardGroundTruth board;
    ReadBoardGTFromTxt(set.file("board_gt.txt"), &board);
    geometry.boardPoints.assign(board.begin(), board.end());
    CalRecificationPrecision(exported.file("polar.txt").c_str(), exported.file("target.ini").c_str(), geometry,
                             exported.file("list.txt").c_str(), &records);
  }
  const Check check = set.check();
  EXPECT_EQ(export_run::difference(check, records), "");
  EXPECT_EQ(check.finished(), 1U);
  EXPECT_TRUE(check.pairs[0].figure("dy_means")->is_own);
  EXPECT_EQ(check.cameras.model, "rectified");
  documentIsValid(check);
}

TEST(CheckFigures, AreTheSameForSomeOfThePairs) {
  const CopiedSet set;
  CheckOptions options;
  options.pairs = {1, 1};
  const Check check = set.check(options);
  ASSERT_EQ(check.pairs.size(), 1U);
  EXPECT_EQ(check.pairs[0].index, 1U);
  EXPECT_EQ(check.pairs[0].left, "left_1.png");
  EXPECT_EQ(check.pairs[0].figure("tri_rms")->values, set.check().pairs[1].figure("tri_rms")->values);
  options.pairs = {1, 2};
  EXPECT_THAT(set.check(options).status.text, HasSubstr("the list has the pairs 0-1"));
}

std::vector<std::string> certainFigures(const PairCheck& pair) {
  std::vector<std::string> names;
  for (const FigureUncertainty& each : pair.uncertainty) names.push_back(each.name);
  return names;
}

TEST(CheckUncertainty, IsOfEveryMeanAndRootMeanSquareOfAFinishedPair) {
  const CopiedSet set;
  switchAllOn(set);
  set.blank("left_1.png");
  const Check check = set.check();
  EXPECT_THAT(certainFigures(check.pairs.at(0)),
              ::testing::UnorderedElementsAre("tri_rms", "tri_mean", "dy_means", "dy_ratio", "allpoints_means",
                                              "space_rms", "dis_rms", "nor_rms", "zero_dis", "icp_x_rms", "icp_y_rms",
                                              "icp_z_rms", "icp_nor_rms", "gt_rms"));
  const FigureUncertainty& dy_means = *check.pairs[0].uncertaintyOf("dy_means");
  EXPECT_GT(dy_means.sd, 0.0);
  EXPECT_LE(dy_means.low95, check.pairs[0].figure("dy_means")->values[0]);
  EXPECT_GE(dy_means.high95, check.pairs[0].figure("dy_means")->values[0]);
  EXPECT_TRUE(check.pairs.at(1).uncertainty.empty()) << "given up";
}

TEST(CheckUncertainty, IsTheSameWhereverTheRunBegins) {
  const CopiedSet set;
  switchAllOn(set);
  CheckOptions second;
  second.pairs = {1, 1};
  const PairCheck of_all = set.check().pairs.at(1);
  const PairCheck alone = set.check(second).pairs.at(0);
  ASSERT_EQ(certainFigures(of_all), certainFigures(alone));
  for (std::size_t k = 0; k < alone.uncertainty.size(); ++k) {
    EXPECT_EQ(of_all.uncertainty[k].sd, alone.uncertainty[k].sd);
    EXPECT_EQ(of_all.uncertainty[k].low95, alone.uncertainty[k].low95);
  }
}

TEST(CheckUncertainty, FramesHaveNone) {
  const CopiedSet set(MemoryRun::twoFrames());
  EXPECT_TRUE(set.check().pairs.at(0).uncertainty.empty());
}

TEST(CheckOut, IsTheExportsFilesByteForByte) {
  for (const char* name : {"out", "out with blanks"}) {
    const CopiedSet set;
    switchAllOn(set);
    set.append("polar.txt", "savepolarline: 1\nevaluation: 1\n");
    const std::string exported = set.parent.file("exported");
    std::filesystem::create_directory(exported);
    export_run::of(set, exported);
    CheckOptions options;
    options.out = set.parent.file(name);
    EXPECT_EQ(set.check(options).status.text, "");
    auto wanted = contentsOf(exported);
    EXPECT_GT(wanted.size(), 8U);
    EXPECT_EQ(contentsOf(options.out), wanted);
    set.check(options);  // Again: the summary takes the next free number.
    wanted["align_data_1.csv"] = wanted["align_data_0.csv"];
    EXPECT_EQ(contentsOf(options.out), wanted);
  }
}

CheckOptions refining() {
  CheckOptions options;
  options.refine = true;
  return options;
}

/// Mean distance of the points of a pair from the truth, pixels.
double errorOf(const PairPoints& points, const scene::PairTruth& truth) {
  double sum = 0.0;
  for (std::size_t k = 0; k < points.id.size(); ++k) {
    const scene::DotTruth& dot = truth.dots.at(static_cast<std::size_t>(points.id[k]));
    sum += std::hypot(points.left_x[k] - dot.pixel_left.x, points.left_y[k] - dot.pixel_left.y);
  }
  return sum / static_cast<double>(points.id.size());
}

TEST(CheckRefined, IsNearerToTheTruthAndLeavesTheLibrarysFigures) {
  const CopiedSet set(RenderedSet::of("ring_320"));
  const Check without = set.check();
  const Check with = set.check(refining());
  documentIsValid(with);
  ASSERT_EQ(with.pairs.size(), 2U);
  EXPECT_FALSE(without.pairs[0].refined);
  EXPECT_FALSE(without.refined_summary);
  EXPECT_EQ(with.refined_summary.value().size(), with.summary.size());
  for (std::size_t k = 0; k < 2; ++k) {
    const PairCheck& pair = with.pairs[k];
    const RefinedPair& refined = pair.refined.value();
    ASSERT_EQ(refined.problem, "");
    ASSERT_EQ(refined.figures.size(), pair.figures.size());
    for (std::size_t figure = 0; figure < pair.figures.size(); ++figure) {
      EXPECT_EQ(pair.figures[figure].values, without.pairs[k].figures[figure].values);
      EXPECT_EQ(refined.figures[figure].name, std::string(pair.figures[figure].name));
      EXPECT_EQ(refined.figures[figure].values.size(), pair.figures[figure].values.size()) << pair.figures[figure].name;
    }
    // The scene's cameras are those of its calibration: the true row difference and residual are 0.
    EXPECT_LT(refined.figure("dy_means")->values.at(0), 0.85 * pair.figure("dy_means")->values.at(0));
    EXPECT_LT(refined.figure("tri_rms")->values.at(0), 0.85 * pair.figure("tri_rms")->values.at(0));
    const scene::PairTruth truth = scene::pairTruth(set.rendered.scene(), k);
    EXPECT_EQ(refined.points.id, pair.points.id);
    EXPECT_LT(errorOf(refined.points, truth), 0.85 * errorOf(pair.points, truth));
    EXPECT_GT(refined.refined_left, 50U);
  }
}

/// The standard deviation of ten values is right to a quarter.
TEST(CheckRefined, UncertaintyIsTheScatterOfPicturesTakenAgain) {
  scene::Scene scene = small_scene::rings();
  scene.left_from_board.resize(10, scene.left_from_board[0]);
  const RenderedSet rendered(scene);
  const CopiedSet set(rendered);
  const Check check = set.check(refining());
  ASSERT_EQ(check.finished(), 10U);
  for (const char* name : {"dy_means", "tri_rms", "dis_rms"}) {
    const auto of_all = std::ranges::find(check.refined_summary.value(), name, &FigureSummary::name);
    double told = 0.0;
    for (const PairCheck& pair : check.pairs) {
      const FigureUncertainty* const uncertainty = pair.refined.value().uncertaintyOf(name);
      ASSERT_NE(uncertainty, nullptr) << name;
      EXPECT_LT(uncertainty->sd, pair.uncertaintyOf(name)->sd) << name;
      told += uncertainty->sd / 10.0;
    }
    EXPECT_GT(told, 0.5 * of_all->sd) << name;
    EXPECT_LT(told, 2.0 * of_all->sd) << name;
  }
}

TEST(CheckRefined, PointsTellWhatIsKnownOfThem) {
  const CopiedSet set;
  switchAllOn(set);
  const PairCheck pair = set.check(refining()).pairs.at(0);
  const RefinedPoints& points = pair.refined.value().points;
  const std::size_t dots = points.id.size();
  for (const auto* list : {&points.left_sd_x, &points.left_sd_y, &points.right_sd_x, &points.right_sd_y, &points.dy,
                           &points.residual, &points.x})
    ASSERT_EQ(list->size(), dots);
  ASSERT_EQ(points.left_state.size(), dots);
  ASSERT_EQ(points.right_state.size(), dots);
  for (std::size_t k = 0; k < dots; ++k) {
    if (points.left_state[k] == DotState::kRefined) {
      EXPECT_GT(points.left_sd_x[k], 0.0F);
      EXPECT_LT(points.left_sd_x[k], 0.2F);
    } else {
      EXPECT_TRUE(std::isnan(points.left_sd_x[k]));
      const auto place = std::ranges::find(pair.points.id, points.id[k]) - pair.points.id.begin();
      EXPECT_EQ(points.left_x[k], pair.points.left_x.at(static_cast<std::size_t>(place))) << "where it was detected";
    }
  }
}

TEST(CheckRefined, PlacesInThePicturesAreKnownWhereOnlyRectifiedOnesWereMeasured) {
  const CopiedSet set;
  set.append("polar.txt",
             "\ntriangulate_residual_switch: 0\ntriangulate_dis_switch: 0\ndiscalswitch: 0\nspaceRms_switch: 0\n"
             "dy_bias_switch: 1\n");
  const PairCheck pair = set.check(refining()).pairs.at(1);
  EXPECT_TRUE(std::isnan(pair.points.left_x.at(0)));
  EXPECT_LT(errorOf(pair.refined.value().points, scene::pairTruth(set.rendered.scene(), 1)), 0.05);
}

TEST(CheckRefined, PairGivenUpHasNothingRefined) {
  const CopiedSet set;
  switchAllOn(set);
  set.blank("right_0.png");
  const Check check = set.check(refining());
  documentIsValid(check);
  const RefinedPair& refined = check.pairs.at(0).refined.value();
  EXPECT_EQ(refined.problem, "");
  EXPECT_TRUE(refined.points.id.empty());
  EXPECT_EQ(refined.figures.size(), check.pairs[0].figures.size());
  EXPECT_TRUE(std::ranges::none_of(refined.figures, &Figure::is_own));
  EXPECT_TRUE(check.pairs[1].refined.value().figure("tri_rms")->is_own);
  for (const Warning& warning : check.warnings) EXPECT_NE(warning.code, "refining_failed");
}

TEST(CheckRefined, FramesBearTheirOwnIds) {
  const CopiedSet set(MemoryRun::twoFrames());
  set.blank("left_1.png");
  const Check check = set.check(refining());
  documentIsValid(check);
  const RefinedPair& refined = check.pairs.at(0).refined.value();
  EXPECT_EQ(refined.points.id, check.pairs[0].points.id);
  EXPECT_EQ(refined.refined_left, 8U);
  EXPECT_EQ(refined.figure("frameValues")->values.size(), check.pairs[0].figure("frameValues")->values.size());
  EXPECT_NE(refined.figure("frameValues")->values, check.pairs[0].figure("frameValues")->values);
  EXPECT_EQ(check.pairs[1].refined.value().problem, "") << "the frame had no figures before";
}

TEST(CheckRefined, LimitsJudgeItOnRequestOnly) {
  const CopiedSet set;
  CheckOptions options = refining();
  options.limits = {"refined.tri_rms<=0", "tri_rms<=9"};
  const Check failed = set.check(options);
  EXPECT_EQ(failed.status.exit_code, 1);
  EXPECT_FALSE(failed.limits.at(0).holds);
  EXPECT_TRUE(failed.pairs.at(0).refined.value().figure("tri_rms")->exceeds);
  options.refine = false;
  const Check refused = set.check(options);
  EXPECT_EQ(refused.status.exit_code, 2);
  EXPECT_THAT(refused.status.text, HasSubstr("limit 'refined.tri_rms<=0'"));
  options.refine = true;
  options.limits.clear();
  options.keep_points = false;
  EXPECT_TRUE(set.check(options).pairs.at(0).refined.value().points.id.empty());
}

TEST(CheckPairs, AreToldOneByOneAndKeepTheirPointsOnRequest) {
  const CopiedSet set;
  CheckOptions options;
  std::vector<std::size_t> told;
  options.on_start = [&](const Check& check) {
    EXPECT_EQ(check.board.cols, 9);
    EXPECT_TRUE(told.empty());
  };
  options.on_pair = [&](const PairCheck& pair, std::size_t count) {
    EXPECT_EQ(count, 2U);
    EXPECT_FALSE(pair.points.id.empty());
    told.push_back(pair.index);
  };
  EXPECT_FALSE(set.check(options).pairs[0].points.id.empty());
  options.keep_points = false;
  told.clear();
  EXPECT_TRUE(set.check(options).pairs[0].points.id.empty());
  EXPECT_THAT(told, ElementsAre(0, 1));
}

TEST(CheckRun, EndsWhenItIsToldTo) {
  const CopiedSet set;
  CheckOptions options;
  int asked = 0;
  options.go_on = [&] { return ++asked < 2; };
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 130);
  EXPECT_EQ(check.status.name, "interrupted");
  EXPECT_EQ(check.pairs.size(), 1U);
  EXPECT_EQ(check.verdict, Verdict::kError);
}

TEST(CheckVerdict, IsWhatTheLimitsSay) {
  const CopiedSet set;
  const auto judged = [&](const std::vector<std::string>& limits) {
    CheckOptions options;
    options.limits = limits;
    const Check check = set.check(options);
    documentIsValid(check);
    return check;
  };
  EXPECT_EQ(judged({}).verdict, Verdict::kPass);
  EXPECT_EQ(judged({"tri_rms<=9", "finished>=2"}).status.exit_code, 0);
  const Check failed = judged({"tri_rms<=9", "finished>=3"});
  EXPECT_EQ(failed.verdict, Verdict::kFail);
  EXPECT_EQ(failed.status.exit_code, 1);
  EXPECT_THAT(judged({"tri_rm<=9"}).status.text, HasSubstr("did you mean tri_rms"));
  set.write("limits.txt", "tri_rms<=0\n");
  EXPECT_EQ(judged({}).verdict, Verdict::kFail);
  EXPECT_EQ(judged({}).limits.at(0).text, "tri_rms<=0");
}

TEST(CheckId, ComesFromContentsOnly) {
  const CopiedSet one;
  const CopiedSet other(MemoryRun::twoPairs(), "under another name");
  const std::string id = one.check().id;
  EXPECT_EQ(id.size(), 64U);
  EXPECT_EQ(other.check().id, id);
  EXPECT_EQ(other.check().name, "under another name");
  for (const auto& entry : std::filesystem::directory_iterator(other.folder)) {
    const std::string name = entry.path().filename().string();
    if (name == "calib.bin" || name == "target.json" || name == "target.yml") continue;  // Not read.
    const std::string content = other.read(name);
    other.append(name, "\n");
    EXPECT_NE(other.check().id, id) << name;
    other.write(name, content);
  }
  EXPECT_EQ(other.check().id, id);
}

TEST(CheckFailures, NameThePictureThatEndedTheRun) {
  const CopiedSet set;
  set.cut("right_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_EQ(check.status.code, polar_status::kImages);
  EXPECT_EQ(check.status.text,
            set.file("list.txt") + ", line 3: the picture right_1.png can't be decoded: it is cut off");
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_FALSE(check.status.retry);
  EXPECT_EQ(check.pairs.size(), 1U);
  documentIsValid(check);
}

TEST(CheckFailures, OfAFolderInAPicturesPlaceStay) {
  const CopiedSet set;
  std::filesystem::remove(set.file("left_1.png"));
  std::filesystem::create_directory(set.file("left_1.png"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_THAT(check.status.text, HasSubstr("line 3: the picture left_1.png can't be read"));
  EXPECT_FALSE(check.status.retry);
  documentIsValid(check);
}

TEST(CheckFailures, OfAPictureThatWentAwayMayBeTriedAgain) {
  const CopiedSet set;
  set.repeat(5);
  set.append("list.txt", "left_0.png right_1.png\n");
  CheckOptions options;
  options.out = set.parent.file("out");
  options.on_pair = [&](const PairCheck&, std::size_t) { std::filesystem::remove(set.file("right_1.png")); };
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 3);
  EXPECT_TRUE(check.status.retry);
  EXPECT_EQ(check.status.text,
            set.file("list.txt") + ", line 7: the picture right_1.png can't be read: No such file or directory");
  EXPECT_THAT(check.status.advice, HasSubstr("It was there when the run began"));
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_EQ(check.pairs.size(), 5U);
  EXPECT_FALSE(set.parent.has("out"));
  documentIsValid(check);
}

TEST(CheckFailures, OfAPictureThatWasNeverThereStay) {
  const CopiedSet set;
  std::filesystem::remove(set.file("right_1.png"));
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2);
  EXPECT_FALSE(check.status.retry);
}

TEST(CheckFailures, NameThePicturesOfUnlikeSizes) {
  const CopiedSet set;
  cv::Mat small;
  cv::resize(set.picture("right_1.png"), small, cv::Size(64, 51));
  set.write("right_1.png", small);
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "picture_size");
  EXPECT_EQ(check.warnings[0].text, "left_1.png is 128 x 102, right_1.png is 64 x 51 pixels");
  EXPECT_EQ(check.warnings[0].pair, 1);
  documentIsValid(check);
}

TEST(CheckFailures, OfEveryPairHaveNoFigure) {
  const CopiedSet set;
  switchAllOn(set);
  set.blank("left_0.png");
  set.blank("right_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 3);
  EXPECT_EQ(check.status.name, "no_figures");
  EXPECT_FALSE(check.status.advice.empty());
  EXPECT_EQ(check.pairs.size(), 2U);
  documentIsValid(check);
}

TEST(CheckFailures, NameThePairThatEndedTheRun) {
  const CopiedSet set;
  switchAllOn(set);
  set.append("polar.txt", "discalsave: 1\n");
  set.blank("left_1.png");
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 2) << "there are figures, and not of the whole set";
  EXPECT_EQ(check.verdict, Verdict::kError);
  EXPECT_THAT(check.status.text, StartsWith("pair 1 (left_1.png, right_1.png), which ended the run: 0 dots were found "
                                            "in the left picture; 6 are needed: "));
  EXPECT_THAT(check.status.advice, HasSubstr("set discalsave to 0"));
  EXPECT_THAT(check.status.advice, HasSubstr("The pairs before it have figures; it was the last."));
  documentIsValid(check);
  set.blank("left_0.png");
  EXPECT_EQ(set.check().status.exit_code, 3);
}

TEST(CheckFailures, OfTheOutFolderMayBeTriedAgain) {
  const CopiedSet set;
  CheckOptions options;
  options.out = set.file("list.txt");
  const Check check = set.check(options);
  EXPECT_EQ(check.status.exit_code, 4);
  EXPECT_TRUE(check.status.retry);
  documentIsValid(check);
}

TEST(CheckWarnings, NameThePicturesOfAnotherSizeThanABinaryCalibration) {
  const CopiedSet set;
  std::filesystem::remove(set.file("calib.json"));
  EXPECT_TRUE(set.check().warnings.empty());
  for (const char* name : {"left_0.png", "right_0.png"}) {
    cv::Mat padded;
    cv::copyMakeBorder(set.picture(name), padded, 0, 2, 0, 0, cv::BORDER_REPLICATE);
    set.write(name, padded);
  }
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].text, "left_0.png is 128 x 104 pixels; the calibration is for 128 x 102");
}

TEST(CheckWarnings, NameAPictureThatIsCutOffAndYetDecodes) {
  const CopiedSet set;
  cv::imwrite(set.file("right_1.jpg"), set.picture("right_1.png"));
  set.write("list.txt", std::string("#L R\nleft_0.png right_0.png\nleft_1.png right_1.jpg\n"));
  EXPECT_TRUE(set.check().warnings.empty());
  const std::string whole = set.read("right_1.jpg");
  set.write("right_1.jpg", whole.substr(0, whole.size() - 40));
  const Check check = set.check();
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "picture_cut_off");
  EXPECT_EQ(check.warnings[0].text, "right_1.jpg is cut off: grey stands for the rest");
  EXPECT_EQ(check.warnings[0].pair, 1);
  documentIsValid(check);
}

TEST(CheckWarnings, TellWhatTheCalibrationLacksAndGoOn) {
  const CopiedSet set;
  auto calibration = nlohmann::json::parse(set.read("calib.json"));
  calibration["IR_L"].erase("K6");
  set.write("calib.json", calibration.dump());
  const Check check = set.check();
  EXPECT_EQ(check.status.exit_code, 0);
  EXPECT_EQ(check.finished(), 2U);
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "calibration_member");
  EXPECT_EQ(export_run::difference(check, export_run::of(set).records), "");
}

TEST(CheckName, IsThatOfTheFolder) {
  const CopiedSet set;
  EXPECT_EQ(set.check().name, "set");
  Set named = set.set();
  named.folder += "/.";
  EXPECT_EQ(check(named).name, "set");
}

TEST(CheckLimitNames, AreKnownBeforeTheRun) { EXPECT_NO_THROW(requireLimit("given_up<=0")); }

}  // namespace
}  // namespace polarline
