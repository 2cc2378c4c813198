#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "CheckedSet.h"

namespace polarline {
namespace {

using ::testing::HasSubstr;

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

}  // namespace
}  // namespace polarline
