#include "report/measure/Distances.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <cmath>

#include "MadeDocument.h"

namespace polarline {
namespace {

Board boardOf(int rows, int columns) {
  Check check = made_document::check();
  check.board.rows = rows;
  check.board.cols = columns;
  return Board(made_document::json(check));
}

DotLists rowOfDots(const std::vector<double>& x) {
  DotLists dots;
  for (std::size_t k = 0; k < x.size(); ++k) dots.id.push_back(static_cast<std::int32_t>(k));
  dots.x = x;
  dots.y = dots.z = std::vector<double>(x.size(), 0.0);
  return dots;
}

/// Dots at 0, 10 and 20 measured at 0, 11 and 20: distances 10, 10, 20 with errors 1, -1, 0.
TEST(DistancesOf, ThreeDots) {
  const std::vector<DistanceBin> bins = distanceBins(rowOfDots({0.0, 11.0, 20.0}), boardOf(1, 3));
  ASSERT_EQ(bins.size(), 2U);
  EXPECT_EQ(bins[0].from, 10.0);
  EXPECT_EQ(bins[0].to, 12.0) << "20 in about twelve round steps";
  EXPECT_EQ(bins[0].count, 2U);
  EXPECT_EQ(bins[0].mean, 0.0);
  EXPECT_DOUBLE_EQ(bins[0].sd, std::sqrt(2.0));
  EXPECT_EQ(bins[0].min, -1.0);
  EXPECT_EQ(bins[0].max, 1.0);
  EXPECT_EQ(bins[1].from, 20.0);
  EXPECT_EQ(bins[1].count, 1U);
  EXPECT_EQ(bins[1].sd, 0.0);
}

TEST(DistancesOf, AStretchedBoardGrowsWithTheDistance) {
  DotLists dots = made_document::dots();
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    dots.x[k] *= 1.01;
    dots.y[k] *= 1.01;
  }
  const std::vector<DistanceBin> bins = distanceBins(dots, boardOf(3, 4));
  std::size_t count = 0;
  for (const DistanceBin& bin : bins) {
    count += bin.count;
    EXPECT_GE(bin.min, 0.01 * bin.from - 1e-9);
    EXPECT_LE(bin.max, 0.01 * bin.to + 1e-9);
  }
  EXPECT_EQ(count, 66U) << "12 * 11 / 2";
}

TEST(DistancesOf, LeaveOutWhatIsNoNumber) {
  EXPECT_TRUE(distanceBins(rowOfDots({0.0, NAN}), boardOf(1, 2)).empty());
  EXPECT_TRUE(distanceBins(rowOfDots({0.0}), boardOf(1, 1)).empty());
  EXPECT_TRUE(distanceBins(DotLists(), boardOf(1, 1)).empty());
}

TEST(DistancesOf, ABoardBeyondAllMeasureAreNone) {
  for (const double step : {1e-322, 1e308, 0.0}) {
    Check check = made_document::check();
    check.settings = {{"frame_work", "1"}, {"Frame_3D", fmt::format("[[0, 0, 0], [{}, 0, 0]]", step)}};
    DotLists dots = rowOfDots({0.0, 1.0, 2.0});
    EXPECT_LE(distanceBins(dots, Board(made_document::json(check))).size(), 1U) << step;
  }
}

TEST(DistancesMany, AreThinnedOutEvenly) {
  std::vector<double> x;
  for (int k = 0; k < 3000; ++k) x.push_back(10.0 * k);
  std::size_t count = 0;
  for (const DistanceBin& bin : distanceBins(rowOfDots(x), boardOf(1, 3000))) count += bin.count;
  EXPECT_EQ(count, 1000U * 999U / 2U) << "every third dot";
}

}  // namespace
}  // namespace polarline
