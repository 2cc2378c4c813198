#include "Tallowfen/src/markers/SplitBigDotsMidResolution.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"

namespace {

using handmade::centres;
using handmade::ellipse;
using handmade::List;
using handmade::sizes;
using kestrune::SplitBigDotsMidResolution;
using kestrune::morvenkit::kBigDot;
using kestrune::morvenkit::kDot;
using kestrune::morvenkit::kRejected;
using testing::Each;
using testing::ElementsAre;

kestrune::Ellipse unclassified(double x, double y, double semi_a, double roundness) {
  kestrune::Ellipse made = ellipse(x, y, semi_a, kRejected);
  made.roundness = roundness;
  return made;
}

/// The four big dots of a board seen straight on, pitch 20, the upper left one a column in.
List quad(double semi_a) {
  return {unclassified(0, 80, semi_a, 0.1), unclassified(80, 80, semi_a, 0.1), unclassified(80, 0, semi_a, 0.1),
          unclassified(20, 0, semi_a, 0.1)};
}

std::vector<int> classes(const List& list) {
  std::vector<int> found;
  for (const auto& member : list) found.push_back(member.point_class);
  return found;
}

TEST(SplitBigDotsMidResolution, FewerThanFourStayAsTheyAre) {
  List list = {unclassified(0, 0, 5, 0.9), unclassified(1, 0, 6, 0.9), unclassified(2, 0, 7, 0.9)};
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(sizes(list), ElementsAre(5.0, 6.0, 7.0));
  EXPECT_THAT(classes(list), Each(kRejected));
}

TEST(SplitBigDotsMidResolution, TheQuadBecomesBigDotsAndRoundOnesDots) {
  List list = {unclassified(40, 40, 6, 0.9), unclassified(60, 40, 6.5, 0.5)};
  list = handmade::joined(list, quad(9));
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(classes(list), ElementsAre(kBigDot, kBigDot, kBigDot, kBigDot, kDot));
  EXPECT_EQ(centres({list.begin(), list.begin() + 4}), centres(quad(9)));
  EXPECT_THAT(sizes(list), ElementsAre(9.0, 9.0, 9.0, 9.0, 6.0));
}

TEST(SplitBigDotsMidResolution, RoundnessOfTheLimitIsDropped) {
  const double limit = static_cast<double>(0.83F);
  List list = handmade::joined(quad(9), {unclassified(40, 40, 6, limit), unclassified(60, 60, 6, limit + 1e-12)});
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(centres({list.begin() + 4, list.end()}), ElementsAre(std::pair(60.0, 60.0)));
}

TEST(SplitBigDotsMidResolution, ASquareIsNoQuad) {
  // The missing symmetry of the board's quad is what tells its corners apart.
  List list;
  for (const auto& [x, y] : {std::pair(0.0, 0.0), std::pair(60.0, 0.0), std::pair(60.0, 60.0), std::pair(0.0, 60.0)}) {
    list.push_back(unclassified(x, y, 9, 0.9));
  }
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(classes(list), Each(kRejected));
}

TEST(SplitBigDotsMidResolution, WithoutAQuadNoClassIsGiven) {
  // On one line no point has a straight angle at it.
  List list = {unclassified(0, 0, 5, 0.9), unclassified(10, 0, 6, 0.9), unclassified(20, 0, 7, 0.9),
               unclassified(31, 0, 8, 0.9)};
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(sizes(list), ElementsAre(8.0, 7.0, 6.0, 5.0));
  EXPECT_THAT(classes(list), Each(kRejected));
}

struct LimitCase {
  const char* name;
  double semi_a;
  double upright;  ///< The longest distance.
  double across;   ///< The second.
  bool quad;
};

class SplitBigDotsMidResolutionSizeLimit : public testing::TestWithParam<LimitCase> {};

TEST_P(SplitBigDotsMidResolutionSizeLimit, IsToldInTheLargestSemiAxis) {
  // Corners of a kite, nothing longer than its diagonals.
  const auto& [name, semi_a, upright, across, quad] = GetParam();
  List list;
  for (const auto& [x, y] : {std::pair(0.0, -upright / 2), std::pair(across / 2 + 1, 0.0), std::pair(0.0, upright / 2),
                             std::pair(1 - across / 2, 0.0)}) {
    list.push_back(unclassified(x, y, semi_a, 0.9));
  }
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(classes(list), Each(quad ? kBigDot : kRejected));
}

// The longest must not exceed 16 semi-axes, the second 14: 160 and 140 both meet their limit at 10 exactly.
INSTANTIATE_TEST_SUITE_P(Table, SplitBigDotsMidResolutionSizeLimit,
                         testing::Values(LimitCase{"AtBothLimits", 10.0, 160, 140, true},
                                         LimitCase{"AboveThem", 9.999, 160, 140, false},
                                         LimitCase{"LongestAboveIts", 10.0, 161, 138, false},
                                         LimitCase{"SecondAboveIts", 10.0, 158, 141, false}),
                         [](const auto& tested) { return tested.param.name; });

TEST(SplitBigDotsMidResolution, OnlyTheTenLargestAreTried) {
  // Ten ellipses on a line, none of which makes a quad, hide a smaller quad.
  List list;
  for (int i = 0; i < 10; ++i) list.push_back(unclassified(1000.0 + 3.0 * i * i, 0, 20.0 + i, 0.9));
  list = handmade::joined(list, quad(9));
  SplitBigDotsMidResolution(list);
  EXPECT_EQ(list.size(), 14U);
  EXPECT_THAT(classes(list), Each(kRejected));
}

TEST(SplitBigDotsMidResolution, TheFirstQuadInAscendingOrderWins) {
  // Two quads: the one of the larger dots comes first.
  List list = quad(9);
  for (kestrune::Ellipse dot : quad(10)) {
    dot.x += 300.0;
    list.push_back(dot);
  }
  for (kestrune::Ellipse& dot : list) dot.roundness = 0.9;
  SplitBigDotsMidResolution(list);
  EXPECT_THAT(classes(list), ElementsAre(kBigDot, kBigDot, kBigDot, kBigDot, kDot, kDot, kDot, kDot));
  EXPECT_THAT(sizes(list), ElementsAre(10, 10, 10, 10, 9, 9, 9, 9));
  EXPECT_EQ(list.front().x, 300.0);
}

}  // namespace
