#include "Tallowfen/src/numbering/CentreTree.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using kestrune::CentreTree;
using Points = std::vector<cv::Point2d>;

std::size_t nearestByTrial(const Points& centres, const cv::Point2d& point) {
  std::size_t best = 0;
  for (std::size_t i = 1; i < centres.size(); ++i) {
    const cv::Point2d offset = centres[i] - point, kept = centres[best] - point;
    if (offset.dot(offset) < kept.dot(kept)) best = i;
  }
  return best;
}

class CentreTreeOf : public testing::TestWithParam<std::size_t> {};

TEST_P(CentreTreeOf, FindsWhatATrialOfAllFinds) {
  std::mt19937 random(7);
  std::uniform_real_distribution<double> coordinate(-100, 100);
  Points centres(GetParam());
  for (cv::Point2d& centre : centres) centre = {coordinate(random), coordinate(random)};
  const CentreTree tree(centres);
  for (int i = 0; i < 500; ++i) {
    const cv::Point2d point(1.3 * coordinate(random), 1.3 * coordinate(random));
    ASSERT_EQ(tree.nearest(point), nearestByTrial(centres, point));
  }
}

INSTANTIATE_TEST_SUITE_P(Sizes, CentreTreeOf, testing::Values(1, 2, 3, 4, 7, 8, 100, 1295));

// On a lattice most points share their coordinates, and half-way points have up to four nearest centres.
TEST(CentreTree, LowerPositionWinsAtEqualDistance) {
  Points centres;
  for (int y = 0; y < 9; ++y) {
    for (int x = 0; x < 11; ++x) centres.emplace_back(x, y);
  }
  centres.push_back(centres[40]);
  const CentreTree tree(centres);
  for (double y = -1; y < 10; y += 0.5) {
    for (double x = -1; x < 12; x += 0.5) ASSERT_EQ(tree.nearest({x, y}), nearestByTrial(centres, {x, y}));
  }
}

TEST(CentreTree, EmptyTreeFindsNothing) { EXPECT_FALSE(CentreTree({}).nearest({0, 0})); }

TEST(CentreTree, PassesOverWhatIsNotFinite) {
  const double nan = std::numeric_limits<double>::quiet_NaN(), infinity = std::numeric_limits<double>::infinity();
  const CentreTree tree({{nan, 0}, {50, 60}, {0, infinity}});
  EXPECT_EQ(tree.nearest({0, 0}), 1U);
  EXPECT_FALSE(tree.nearest({nan, 0}));
  EXPECT_FALSE(CentreTree({{nan, nan}}).nearest({0, 0}));
}

}  // namespace
