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
  PairInput last;                     ///< What the last evaluation was handed.
  std::ostringstream summary;

  std::int32_t walk(const WalkRules& rules) {
    applyConfig();
    PairEvaluator evaluator(core.config);
    const auto start = std::chrono::steady_clock::now();
    return walkPairs(core, arguments, evaluator, summary, start, rules, [&](std::size_t index, const PairInput& pair) {
      numbers.push_back(evaluator.image_id);
      last = pair;
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
  config.evaluation = 0;
  walk({.writes_every_row = false});
  EXPECT_EQ(summary.str(), "\n");
  walk({.writes_every_row = true});
  EXPECT_EQ(summary.str(), "\nImages_num_: 1_PolarVersion_: 1.3.3\n\n");
}

TEST_F(PairWalk, ImagesAreLetGoBeforeTheReport) {
  pairs(1);
  const int* held = &arguments.images[0][0].u->refcount;
  const int held_by_the_set = *held;
  std::vector<int> held_at_report;
  progress = [&](float /*percentage*/) {
    held_at_report.push_back(*held);
    return true;
  };
  applyConfig();
  PairEvaluator evaluator(core.config);
  int held_meanwhile = 0;
  walkPairs(core, arguments, evaluator, summary, std::chrono::steady_clock::now(), {},
            [&](std::size_t, const PairInput&) {
              held_meanwhile = *held;
              return kFinished;
            });
  EXPECT_GT(held_meanwhile, held_by_the_set);
  EXPECT_EQ(held_at_report, std::vector<int>{held_by_the_set});
}

TEST_F(PairWalk, HandsOverWhatTheConfigurationAndTheCamerasSay) {
  pairs(1);
  outcomes = {kFinished};
  config.evalu_model = 1;
  core.left.K = cv::Mat::eye(3, 3, CV_64FC1);
  core.right.K = cv::Mat::eye(3, 3, CV_64FC1) * 2.0;
  core.R = cv::Mat::eye(3, 3, CV_64FC1) * 3.0;
  core.T = cv::Mat::ones(3, 1, CV_64FC1);
  walk({});
  EXPECT_EQ(last.evalu_model, 1);
  EXPECT_STREQ(last.targetConfigPath, "board_type: 2");
  EXPECT_EQ(last.left_image.data, arguments.images[0][0].data);
  EXPECT_EQ(last.right_image.data, arguments.images[1][0].data);
  EXPECT_EQ(last.cameras.left_K.at<double>(0, 0), 1.0);
  EXPECT_EQ(last.cameras.right_K.at<double>(0, 0), 2.0);
  EXPECT_EQ(last.cameras.R.at<double>(0, 0), 3.0);
  EXPECT_EQ(last.cameras.T.at<double>(2, 0), 1.0);
}

TEST_F(PairWalk, CropHandsOverACopyOfTheMiddle) {
  config.crop = 1;
  config.cropped_cols = 20;
  config.cropped_rows = 10;
  cv::Mat image(30, 40, CV_8UC1);
  for (int row = 0; row < 30; ++row)
    for (int column = 0; column < 40; ++column)
      image.at<std::uint8_t>(row, column) = static_cast<std::uint8_t>(4 * row + column);
  arguments.images = {{image}, {image}};
  outcomes = {kFinished};
  EXPECT_EQ(walk({}), 0);
  ASSERT_EQ(last.left_image.size(), cv::Size(20, 10));
  EXPECT_EQ(last.left_image.at<std::uint8_t>(0, 0), 4 * 10 + 10) << "the middle of the image";
  EXPECT_EQ(last.left_image.at<std::uint8_t>(9, 19), 4 * 19 + 29);
  EXPECT_FALSE(last.left_image.isSubmatrix()) << "a copy of its own";
  EXPECT_TRUE(last.cameras.left_K.empty()) << "a run without matrices has none to shift";
}

TEST_F(PairWalk, PairThatEndsTheRunGivesItsStatus) {
  pairs(3);
  outcomes = {kFinished, {PairOutcome::kEndRun, polar_status::kOutlier}};
  EXPECT_EQ(walk({}), polar_status::kOutlier);
  EXPECT_EQ(core.records.size(), 1U);
  EXPECT_EQ(summary.str(), "Images_num_: 1_PolarVersion_: 1.3.3\n") << "the summary is not closed";
}

/// Writes down what a walk shows of its pairs.
struct Observed final : RunObserver {
  struct Pair {
    std::size_t index;
    bool finished;
    std::int32_t status;
    std::size_t found;  ///< What the evaluation saw.
    bool is_measured;   ///< Whether it measured the rows.
    float dy_means;
  };
  std::vector<Pair> pairs;
  void pairDone(std::size_t index, bool finished, std::int32_t status, const PairEvaluator& evaluator) override {
    pairs.push_back({index, finished, status, evaluator.seen.found[0], evaluator.figures.isMeasured(FigureGroup::kRows),
                     evaluator.figures.dy_means});
  }
};

TEST_F(PairWalk, ObserverSeesEachPairWhenTheRunIsDoneWithIt) {
  pairs(4);
  Observed observer;
  arguments.observer = &observer;
  outcomes = {kFinished,
              {PairOutcome::kGivenUp, polar_status::kTooFewShared},
              kFinished,
              {PairOutcome::kEndRun, polar_status::kOutlier}};
  EXPECT_EQ(walk({}), polar_status::kOutlier);
  ASSERT_EQ(observer.pairs.size(), 4U);
  for (std::size_t k = 0; k < 4; ++k) EXPECT_EQ(observer.pairs[k].index, k);
  EXPECT_TRUE(observer.pairs[0].finished);
  EXPECT_EQ(observer.pairs[0].status, 0);
  EXPECT_FALSE(observer.pairs[1].finished);
  EXPECT_EQ(observer.pairs[1].status, polar_status::kTooFewShared);
  EXPECT_TRUE(observer.pairs[2].finished);
  EXPECT_FALSE(observer.pairs[3].finished);
  EXPECT_EQ(observer.pairs[3].status, polar_status::kOutlier);
  EXPECT_TRUE(core.records.empty()) << "the observer takes their place";
  EXPECT_EQ(reported.size(), 2U) << "nothing else changes";
}

TEST_F(PairWalk, ObservationsBeginAnewWithEachPairWhileFiguresStay) {
  pairs(2);
  Observed observer;
  arguments.observer = &observer;
  applyConfig();
  PairEvaluator evaluator(core.config);
  walkPairs(core, arguments, evaluator, summary, {}, {}, [&](std::size_t index, const PairInput&) {
    if (index == 0) {
      evaluator.seen.found = {40, 41};
      evaluator.figures.dy_means = 0.5F;
      evaluator.figures.setMeasured(FigureGroup::kRows);
    }
    return kFinished;
  });
  EXPECT_EQ(observer.pairs.at(0).found, 40U);
  EXPECT_TRUE(observer.pairs.at(0).is_measured);
  EXPECT_EQ(observer.pairs.at(1).found, 0U);
  EXPECT_FALSE(observer.pairs.at(1).is_measured);
  EXPECT_EQ(observer.pairs.at(1).dy_means, 0.5F);
}

TEST_F(PairWalk, ObserverIsToldOfImagesThatCannotBeHad) {
  pairs(2);
  arguments.images[1][1] = cv::Mat();
  Observed observer;
  arguments.observer = &observer;
  outcomes = {kFinished, kFinished};
  EXPECT_EQ(walk({}), polar_status::kImages);
  ASSERT_EQ(observer.pairs.size(), 2U);
  EXPECT_FALSE(observer.pairs[1].finished);
  EXPECT_EQ(observer.pairs[1].status, polar_status::kImages);
}

/// Three pairs of images of one value: 10 + k on the left, 20 + k on the right.
struct Source final : ImageSource {
  std::vector<std::size_t> taken;
  std::size_t pairs() const override { return 3; }
  std::pair<cv::Mat, cv::Mat> take(std::size_t index) override {
    taken.push_back(index);
    const auto image = [](std::size_t value) { return cv::Mat(4, 6, CV_8UC1, cv::Scalar(static_cast<double>(value))); };
    return {image(10 + index), index == 2 ? cv::Mat() : image(20 + index)};
  }
};

TEST_F(PairWalk, SourceTakesThePlaceOfTheImages) {
  Source source;
  arguments.images = {};
  arguments.source = &source;
  outcomes = {kFinished, kFinished, kFinished};
  EXPECT_TRUE(isStereoSet(core, arguments));
  EXPECT_EQ(walk({}), polar_status::kImages) << "the last image is empty";
  EXPECT_EQ(source.taken, (std::vector<std::size_t>{0, 1, 2}));
  EXPECT_EQ(last.left_image.at<std::uint8_t>(0, 0), 11);
  EXPECT_EQ(last.right_image.at<std::uint8_t>(3, 5), 21);
  EXPECT_EQ(reported, (std::vector<float>{33.003F, 2 * 33.0F + 0.003F}));
}

}  // namespace
