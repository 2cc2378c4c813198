#include "polar/run/PairWalk.h"

#include <gtest/gtest.h>

#include <sstream>

#include "PolarLinePrecision/Status.h"
#include "support/RunFixture.h"

namespace {

/// A walk whose evaluations are written down: the outcome of each pair in turn.
struct PairWalk : ::testing::Test, RunFixture {
  std::vector<PairResult> outcomes;
  std::vector<std::int32_t> numbers;  ///< Of the pairs, as their evaluation sees them.
  std::ostringstream summary;

  std::int32_t walk(const WalkRules& rules) {
    applyConfig();
    PairEvaluator evaluator(core.config);
    const auto start = std::chrono::steady_clock::now();
    return walkPairs(core, arguments, evaluator, summary, start, rules, [&](std::size_t index) {
      numbers.push_back(evaluator.image_id);
      return outcomes.at(index);
    });
  }
};

constexpr PairResult kFinished;
constexpr PairResult kGivenUp{PairOutcome::kGivenUp, 0};

TEST_F(PairWalk, PairGivenUpCountsWhereTheRulesSaySo) {
  pairs(3);
  outcomes = {kFinished, kGivenUp, kFinished};
  EXPECT_EQ(walk({.counts_given_up = true}), 0);
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 1, 2}));
  EXPECT_EQ(reported, (std::vector<float>{33.003F, 3 * 33.0F + 0.003F}));
  EXPECT_EQ(core.records.size(), 2U);
}

TEST_F(PairWalk, ElseTheNextPairTakesItsNumber) {
  pairs(3);
  outcomes = {kFinished, kGivenUp, kFinished};
  EXPECT_EQ(walk({.counts_given_up = false}), 0);
  EXPECT_EQ(numbers, (std::vector<std::int32_t>{0, 1, 1}));
  EXPECT_EQ(reported, (std::vector<float>{33.003F, 2 * 33.0F + 0.003F}));
  EXPECT_EQ(core.records.size(), 2U);
}

TEST_F(PairWalk, RowsBearThePositionInTheSet) {
  pairs(3);
  outcomes = {kFinished, kGivenUp, kFinished};
  walk({});
  EXPECT_EQ(summary.str(), "Images_num_: 1_PolarVersion_: 1.3.3\nImages_num_: 3_PolarVersion_: 1.3.3\n\n");
}

TEST_F(PairWalk, RowsAreFormedForAnEvaluationOrWhereTheRulesSaySo) {
  pairs(1);
  outcomes = {kFinished};
  arguments.evaluation = 0;
  walk({.writes_every_row = false});
  EXPECT_EQ(summary.str(), "\n");
  walk({.writes_every_row = true});
  EXPECT_EQ(summary.str(), "\nImages_num_: 1_PolarVersion_: 1.3.3\n\n");
}

TEST_F(PairWalk, ImagesAreLetGoWhereTheRulesSaySo) {
  pairs(1);
  outcomes = {kFinished};
  walk({.releases_images = false});
  EXPECT_FALSE(core.left_image.empty());
  EXPECT_FALSE(core.right_image.empty());
  walk({.releases_images = true});
  EXPECT_TRUE(core.left_image.empty());
  EXPECT_TRUE(core.right_image.empty());
}

TEST_F(PairWalk, PairThatEndsTheRunGivesItsStatus) {
  pairs(3);
  outcomes = {kFinished, {PairOutcome::kEndRun, polar_status::kOutlier}};
  EXPECT_EQ(walk({}), polar_status::kOutlier);
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(summary.str(), "Images_num_: 1_PolarVersion_: 1.3.3\n") << "the summary is not closed";
}

}  // namespace
