#include "polar/evaluate/raw/BoardFit.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/ExactPair.h"

namespace {

TEST(BoardFitProjectionRms, WithoutLimitEveryDistanceCounts) {
  EXPECT_EQ(projectionRms({3.0, 4.0, 5.0, 50.0}, std::numeric_limits<double>::infinity()),
            static_cast<float>(std::sqrt(2550.0 / 4.0)));
}

TEST(BoardFitProjectionRms, DistancesAboveTheLimitAreLeftOutOfSumAndCount) {
  EXPECT_EQ(projectionRms({3.0, 4.0, 5.0, 5.0001}, 5.0), static_cast<float>(std::sqrt(50.0 / 3.0)));
}

TEST(BoardFitProjectionRms, NoKeptDistanceIsNoNumber) { EXPECT_TRUE(std::isnan(projectionRms({7.0}, 5.0))); }

struct BoardFit : testing::Test {
  ExactPair exact;
  std::vector<PairPointRecord> records;

  BoardFit() {
    exact.makeBoard(4, 5);
    exact.config.discalsave = true;
    for (std::size_t id = 0; id < exact.board.size(); ++id) {
      const scene::Point3 point = exact.pointLeft(exact.board[id]);
      const cv::Point2f pixel = ExactPair::pixelOf(exact.rig.left, point);
      PairPointRecord record;
      record.id = static_cast<std::int32_t>(id);
      record.left_x = pixel.x;
      record.left_y = pixel.y;
      record.x = static_cast<float>(point.x);
      record.y = static_cast<float>(point.y);
      record.z = static_cast<float>(point.z);
      records.push_back(record);
    }
  }
  std::vector<double> fitted(PairEvaluator& evaluator) {
    const cv::Mat K = ExactPair::matrixOf(exact.rig.left);
    const BrownPairModel model(evaluator.left_dist, evaluator.right_dist);
    DistanceTables tables(evaluator, true);
    evaluator.figures.pairPoints = records;
    return fitAndProject(evaluator.figures, exact.board, {K, model}, tables);
  }
};

TEST_F(BoardFit, ExactBoardProjectsOntoItsImage) {
  PairEvaluator evaluator = exact.exactEvaluator();
  for (const double distance : fitted(evaluator)) EXPECT_LT(distance, 2e-3);
  EXPECT_LT(evaluator.figures.icp_nor_rms, 1e-3F);
}

TEST_F(BoardFit, MovedPixelIsThatDistanceOff) {
  records[7].left_x += 3.0F;
  records[7].left_y -= 4.0F;
  PairEvaluator evaluator = exact.exactEvaluator();
  const std::vector<double> distances = fitted(evaluator);
  EXPECT_NEAR(distances[7], 5.0, 3e-3);
  EXPECT_LT(distances[6], 3e-3);
}

TEST(BoardFitOfOnePoint, DistanceIsOfDifferencesInSinglePrecision) {
  // The point lands on its place, and that on the pixel (740, 562).
  EvaluatorFixture fixture;
  PairEvaluator evaluator = fixture.evaluator();
  const cv::Mat K = (cv::Mat_<double>(3, 3) << 1000, 0, 640, 0, 1000, 512, 0, 0, 1);
  PairPointRecord record;
  record.left_x = 0.3F;
  record.left_y = 562.0F;
  record.x = 100.0F;
  record.y = 50.0F;
  record.z = 1000.0F;
  evaluator.figures.pairPoints = {record};
  const BrownPairModel model({}, {});
  DistanceTables tables(evaluator, false);
  const std::vector<double> distances = fitAndProject(evaluator.figures, {{7, 8, 9}}, {K, model}, tables);
  EXPECT_EQ(distances.at(0), static_cast<double>(740.0F - 0.3F));
  EXPECT_NE(distances.at(0), 740.0 - static_cast<double>(0.3F));
}

TEST_F(BoardFit, FourFitFiguresReachTheEvaluator) {
  records[0].z += 2.0F;
  PairEvaluator evaluator = exact.exactEvaluator();
  fitted(evaluator);
  EXPECT_GT(evaluator.figures.icp_z_rms, 0.1F);
  EXPECT_NEAR(evaluator.figures.icp_nor_rms,
              std::hypot(evaluator.figures.icp_x_rms, evaluator.figures.icp_y_rms, evaluator.figures.icp_z_rms), 1e-5);
}

TEST_F(BoardFit, TableFollowsAnEmptyLineAndHoldsThousandths) {
  records[3].left_x += 10.0F;
  PairEvaluator evaluator = exact.exactEvaluator();
  const double third = fitted(evaluator)[3];
  std::istringstream table(exact.folder.read("0_boardcheck.csv"));
  std::string line;
  std::getline(table, line);
  EXPECT_EQ(line, "");
  std::getline(table, line);
  EXPECT_EQ(line, "id_, ,gt_err_mean");
  for (int k = 0; k < 4; ++k) std::getline(table, line);
  std::ostringstream expected;
  expected << "3,gt_err_mean," << third * 1000;
  EXPECT_EQ(line, expected.str());
}

}  // namespace
