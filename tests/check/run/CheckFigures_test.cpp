#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CheckedSet.h"
#include "ExportRun.h"
#include "PolarLinePrecision/Status.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

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

/// By a way of numbering and one of binarisation other than the first.
template <int kNumbering, int kBinarisation>
scene::Scene foundBy() {
  scene::Scene scene = small_scene::circles();
  scene.settings.id_method = kNumbering;
  scene.settings.bin_method = kBinarisation;
  return scene;
}

/// The edge binarisation keeps a fixed share of all pixels: few dots, and nothing else that has an edge.
scene::Scene byEdges() {
  scene::Scene scene = foundBy<0, 1>();
  scene.optics.surround = scene.optics.paper;
  scene.optics.texture = 0.0;
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
    ::testing::Values(OtherScene{"Search", foundBy<1, 0>, ""}, OtherScene{"Edges", byEdges, ""},
                      OtherScene{"ThirdBinarisation", foundBy<0, 2>, ""},
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

}  // namespace
}  // namespace polarline
