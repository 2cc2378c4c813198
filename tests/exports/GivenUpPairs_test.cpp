// A pair whose evaluation fails: what it leaves, and that the walk goes on behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ConsoleLines.h"
#include "support/FolderContents.h"
#include "support/MemoryRun.h"

namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Key;
using ::testing::Not;

/// A dot at the board's corner that only the second pair shows.
constexpr std::int32_t kCorner = 62;

struct GivenUpPairsFailingPair : ::testing::Test {
  MemoryRun two{MemoryRun::twoPairs()};
  std::string polar = two.set.polarText();

  void configure(const std::string& key, const std::string& value) { polar += "\n" + key + ": " + value; }
  /// The four points of the cloud or of the triangulation begin with the dot that the first pair lacks.
  void chooseTheCorner(const std::string& points) {
    two.hide(0, 0, kCorner);
    configure(points + "1_ID", std::to_string(kCorner));
    configure(points + "1_GT", "[160,120,0]");
  }
  /// The first pair leaves no record, row or report; the second is as ever and counts as the second.
  void firstIsGivenUp(const RunOutcome& run) const {
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.records.size(), 1U);
    EXPECT_EQ(two.reported, (std::vector<float>{0.001F, 0.002F, 0.003F, 2 * 49.5F + 0.003F, 100.0F}));
    const std::vector<std::string> rows = console_lines::linesOf(two.folder.read("align_data_0.csv"));
    ASSERT_EQ(rows.size(), 3U) << "header, one row, the empty line";
    EXPECT_TRUE(rows[1].starts_with("Images_num_: 2_PolarVersion_: 1.3.3,")) << rows[1];
  }
};

TEST_F(GivenUpPairsFailingPair, OfAFailedTriangulationNeitherPicturesNorRowsAreThere) {
  chooseTheCorner("TriPoint");
  configure("discalsave", "0");
  const RunOutcome run = two.run(polar);
  firstIsGivenUp(run);
  const auto files = contentsOf(two.folder.path());
  for (const char* name : {"result/0.png", "result_left/0_left.png", "result_right/0_right.png", "0_left_dy.csv",
                           "0_left_dy.png", "0_pointcloud.csv", "0_boardcheck.csv"})
    EXPECT_THAT(files, Not(Contains(Key(name))));
  for (const char* name : {"result/1.png", "result_left/1_left.png", "result_right/1_right.png", "1_left_dy.csv",
                           "1_left_dy.png", "1_pointcloud.csv"})
    EXPECT_THAT(files, Contains(Key(name)));
  EXPECT_EQ(console_lines::textsBehind(" Virtual camera f: ", run.out).size(), 1U);
  EXPECT_EQ(console_lines::textsBehind("distortion model: ", run.out).size(), 1U);
}

/// An evaluation behind the triangulation that fails. `discalsave` ends a run for the triangulation's failure only.
struct FailingEvaluation {
  const char* name;
  const char* lacks_one;                  ///< Which four points lack one; null: the first pair is blank.
  std::vector<const char*> switched_off;  ///< Evaluations that would fail before it, or that it does not need.
};
using LaterFailureCase = std::tuple<FailingEvaluation, const char*>;
class GivenUpPairsLaterFailure : public GivenUpPairsFailingPair,
                                 public ::testing::WithParamInterface<LaterFailureCase> {};

TEST_P(GivenUpPairsLaterFailure, GivesThePairUpWhateverTheSaveSwitchSays) {
  two.stop_at = 0.001F;
  two.run(polar);  // Leaves a text that a failure would replace.
  ASSERT_EQ(errorText(), "Callback Terminated");
  two.stop_at = 1e9F;
  two.reported.clear();

  const auto& [failing, save] = GetParam();
  configure("discalsave", save);
  for (const char* key : failing.switched_off) configure(key, "0");
  if (failing.lacks_one == nullptr) {
    two.blank(0, 0);
  } else {
    chooseTheCorner(failing.lacks_one);
  }
  const RunOutcome run = two.run(polar);
  firstIsGivenUp(run);
  EXPECT_EQ(run.error_text, "Callback Terminated") << "the failure's text does not reach the caller";
}

constexpr const char* kResiduals = "triangulate_residual_switch";
constexpr const char* kFourPoints = "triangulate_dis_switch";
constexpr const char* kRows = "dy_bias_switch";
constexpr const char* kCloud = "foursixmethod_swithch";
constexpr const char* kBoardCheck = "spaceRms_switch";

INSTANTIATE_TEST_SUITE_P(
    Evaluations, GivenUpPairsLaterFailure,
    ::testing::Combine(
        ::testing::Values(FailingEvaluation{"Cloud", "PolPoint", {}},
                          FailingEvaluation{"CloudAlone", "PolPoint", {kResiduals, kFourPoints, kRows, kBoardCheck}},
                          FailingEvaluation{"Rows", nullptr, {kResiduals, kFourPoints}},
                          FailingEvaluation{"BoardCheck", nullptr, {kResiduals, kFourPoints, kRows, kCloud}}),
        ::testing::Values("0", "1")),
    [](const auto& test) { return std::string(std::get<0>(test.param).name) + "Save" + std::get<1>(test.param); });

TEST_F(GivenUpPairsFailingPair, OfAFailedCloudHasItsPicturesAndRowsButNoBoardCheck) {
  chooseTheCorner("PolPoint");
  const RunOutcome run = two.run(polar);
  firstIsGivenUp(run);
  const auto files = contentsOf(two.folder.path());
  for (const char* name : {"result/0.png", "0_left_dy.csv", "0_pointcloud.csv"})
    EXPECT_THAT(files, Contains(Key(name)));
  EXPECT_EQ(console_lines::textsBehind("distortion model: ", run.out).size(), 1U);
  EXPECT_THAT(two.folder.read("0_boardcheck.csv"), Not(HasSubstr("space_rms")));
  EXPECT_THAT(two.folder.read("1_boardcheck.csv"), HasSubstr("space_rms"));
}

}  // namespace
