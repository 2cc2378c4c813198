#include "report/measure/PairMeasures.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

PairMeasures measured(const DotLists& dots) {
  const Json document = made_document::json(made_document::check());
  return measure(dots, Board(document), CausePattern(document, knownCameras(document)));
}

TEST(PairMeasuresOf, AWholePair) {
  const PairMeasures measures = measured(made_document::dots());
  EXPECT_EQ(measures.disparity, std::vector<double>(12, 5.0));
  EXPECT_TRUE(measures.dy_pattern.empty());
  EXPECT_EQ(measures.rows.dy.count, 12U);
  EXPECT_NEAR(measures.rows.dy.mean, 0.055, 1e-8);
  EXPECT_EQ(measures.residual.max, 0.25);
  EXPECT_EQ(measures.disparity_spread.min, 5.0);
  EXPECT_NEAR(measures.depth_error.max, 0.0, 1e-12);
  ASSERT_TRUE(measures.rows.along && measures.rows.across);
  EXPECT_NEAR(measures.rows.along->slope, 0.001, 1e-9) << "0.01 a dot of 10 pixels";
  EXPECT_NEAR(measures.rows.across->slope, 0.004, 1e-9) << "0.04 a row";
  EXPECT_FALSE(measures.distances.empty());
  EXPECT_EQ(measures.worst, (std::vector<std::size_t>{11, 10, 9, 8, 7, 6, 5, 4, 3, 2}));
  EXPECT_TRUE(measures.worst_by_dy);
}

/// A row offset makes the same difference everywhere.
TEST(PairMeasuresRemains, AreTheRowsWithoutThePatternOfTheCauses) {
  EXPECT_FALSE(measured(made_document::dots()).remains);
  Check check = made_document::check();
  check.diagnosis.emplace();
  check.diagnosis->causes = {{"row_offset", 0.5, 0.0, "", 1.0, "text", 0}};
  const Json document = made_document::json(check);
  const PairMeasures measures =
      measure(made_document::dots(), Board(document), CausePattern(document, knownCameras(document)));
  ASSERT_TRUE(measures.remains && measures.remains->along && measures.remains->across);
  EXPECT_NEAR(measures.remains->dy.mean, 0.555, 1e-8);
  EXPECT_NEAR(measures.remains->along->slope, 0.001, 1e-9);
  EXPECT_NEAR(measures.remains->across->intercept, measures.rows.across->intercept + 0.5, 1e-8);
  EXPECT_NEAR(measures.rows.dy.mean, 0.055, 1e-8);
}

TEST(PairMeasuresWorst, AreByTheResidualWithoutRows) {
  DotLists dots = made_document::dots();
  dots.dy.clear();
  dots.rectified_left_x.clear();
  dots.residual[4] = 9.0;
  const PairMeasures measures = measured(dots);
  EXPECT_FALSE(measures.worst_by_dy);
  EXPECT_EQ(measures.worst.front(), 4U);
  EXPECT_TRUE(measures.disparity.empty());
  EXPECT_FALSE(measures.rows.along);
}

}  // namespace
}  // namespace polarline
