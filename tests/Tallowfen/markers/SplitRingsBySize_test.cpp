#include "Tallowfen/src/markers/SplitRingsBySize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"
#include "tests/support/ConsoleCapture.h"

namespace {

using handmade::centres;
using handmade::corners;
using handmade::dotGrid;
using handmade::ellipse;
using handmade::joined;
using handmade::List;
using handmade::sizes;
using kestrune::EllipsesByClass;
using kestrune::MarkerSizes;
using kestrune::SplitRingsBySize;
using kestrune::morvenkit::kSolidRing;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kDotSize = 6.0;
constexpr double kSmall = 9.0;
constexpr double kBig = 18.0;

/// Lists over a field of dots, the context of an image 640 columns wide, and what one decision made of them.
class SplitRingsBySizeTest : public testing::Test {
 protected:
  SplitRingsBySizeTest() { lists_.dots = dotGrid(21, 20.0, kDotSize); }

  bool run() {
    ConsoleCapture console;
    const bool passed = SplitRingsBySize({{5.0, 2.0}, binary_}, lists_, sizes_);
    err_ = console.err();
    EXPECT_EQ(console.out(), "");
    return passed;
  }

  /// What joined the field of dots.
  List joinedDots() const {
    return {lists_.dots.begin() + static_cast<std::ptrdiff_t>(dotGrid(21, 20.0, kDotSize).size()), lists_.dots.end()};
  }

  void expectSizes(bool rings_small, bool solid_big) const {
    EXPECT_EQ(sizes_.rings_small, rings_small);
    EXPECT_EQ(sizes_.solid_big, solid_big);
    EXPECT_FALSE(sizes_.big_dot_board);
  }

  void expectFailure() {
    const List rings = lists_.rings;
    const List solids = lists_.solids;
    EXPECT_FALSE(run());
    EXPECT_EQ(err_, "Not enough rings and solidrings:  \n");
    EXPECT_EQ(centres(lists_.rings), centres(rings));
    EXPECT_EQ(centres(lists_.solids), centres(solids));
  }

  EllipsesByClass lists_;
  MarkerSizes sizes_{};
  cv::Mat binary_;
  std::string err_;
};

kestrune::Ellipse solidAt(double x, double y, double semi_a) { return ellipse(x, y, semi_a, kSolidRing); }

TEST_F(SplitRingsBySizeTest, WithoutRingsItFailsInSilence) {
  lists_.solids = {solidAt(100, 150, kSmall)};
  EXPECT_FALSE(run());
  EXPECT_EQ(err_, "");
}

TEST_F(SplitRingsBySizeTest, FourSmallRingsAndASmallSolid) {
  lists_.rings = joined({ellipse(20, 20, kBig)}, corners(kSmall));
  lists_.solids = {solidAt(100, 150, kSmall), solidAt(380, 20, kBig)};
  EXPECT_TRUE(run());
  EXPECT_EQ(err_, "");
  expectSizes(true, false);
  EXPECT_EQ(centres(lists_.rings), centres(corners(kSmall)));
  EXPECT_THAT(centres(lists_.solids), ElementsAre(std::pair(100.0, 150.0)));
  EXPECT_THAT(centres(joinedDots()), ElementsAre(std::pair(20.0, 20.0), std::pair(380.0, 20.0)));
}

TEST_F(SplitRingsBySizeTest, FourBigRingsAndABigSolid) {
  lists_.rings = joined({ellipse(20, 20, kSmall)}, corners(kBig));
  lists_.solids = {solidAt(100, 150, kBig), solidAt(380, 20, kSmall), solidAt(20, 380, kSmall)};
  EXPECT_TRUE(run());
  expectSizes(false, true);
  EXPECT_EQ(sizes(lists_.rings), sizes(corners(kBig)));
  EXPECT_THAT(centres(lists_.solids), ElementsAre(std::pair(100.0, 150.0)));
  EXPECT_THAT(sizes(joinedDots()), ElementsAre(kSmall, kSmall, kSmall));
}

TEST_F(SplitRingsBySizeTest, SmallMarkersGoBeforeBigOnes) {
  lists_.rings = joined(corners(kBig), corners(kSmall));
  lists_.solids = {solidAt(100, 150, kBig), solidAt(100, 250, kSmall)};
  EXPECT_TRUE(run());
  expectSizes(true, false);
  EXPECT_EQ(sizes(lists_.rings), sizes(corners(kSmall)));
}

TEST_F(SplitRingsBySizeTest, TheRingsAreNotCutWhenTheSolidAlreadyFailed) {
  // Five small rings, one of them uncertain, and no small solid: the big markers win, and all five small rings join the
  // dots.
  lists_.rings = joined(corners(kSmall), {ellipse(200, 200, kSmall, 1, 0.9)});
  lists_.rings = joined(lists_.rings, corners(kBig));
  lists_.solids = {solidAt(100, 150, kBig)};
  EXPECT_TRUE(run());
  expectSizes(false, true);
  EXPECT_EQ(joinedDots().size(), 5U);
}

TEST_F(SplitRingsBySizeTest, ARatioOfTwoExactlyIsADot) {
  lists_.rings = corners(2.0 * kDotSize);
  lists_.solids = {solidAt(100, 150, kBig)};
  EXPECT_FALSE(run());
  EXPECT_THAT(sizes(joined(lists_.dots, lists_.unknowns)), testing::IsSupersetOf(sizes(corners(2.0 * kDotSize))));
}

TEST_F(SplitRingsBySizeTest, OfSeveralSmallSolidsTheGreatestAgainstItsDotsIsKept) {
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(100, 150, 8), solidAt(100, 250, 10), solidAt(200, 250, 9)};
  EXPECT_TRUE(run());
  expectSizes(true, false);
  EXPECT_THAT(sizes(lists_.solids), ElementsAre(10.0));
  EXPECT_THAT(joinedDots(), IsEmpty());
}

TEST_F(SplitRingsBySizeTest, AGreatSolidAmongGreatDotsIsNotTheGreatestAgainstThem) {
  for (kestrune::Ellipse& dot : lists_.dots) {
    if (dot.x > 320) dot.semi_a = 8;
  }
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(100, 150, 9), solidAt(370, 200, 10)};  // 1.5 and 1.25 times the dots beside them.
  EXPECT_TRUE(run());
  EXPECT_THAT(sizes(lists_.solids), ElementsAre(9.0));
}

TEST_F(SplitRingsBySizeTest, TheSizeComparedIsThatOfTheSamePositionAmongAllSolids) {
  // The big solid shifts the positions: 18 / 6 stands for the first small one, 8 / 6 for the second.
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(380, 380, kBig), solidAt(100, 150, 8), solidAt(100, 250, 10)};
  EXPECT_TRUE(run());
  EXPECT_THAT(sizes(lists_.solids), ElementsAre(8.0));
  EXPECT_THAT(sizes(joinedDots()), ElementsAre(kBig));
}

TEST_F(SplitRingsBySizeTest, ASmallSolidIsFoundAmongTheUnknowns) {
  lists_.rings = joined(corners(kSmall), {ellipse(380, 380, kBig)});
  lists_.unknowns = {ellipse(250, 30, kSmall), solidAt(100, 150, kSmall), ellipse(300, 200, 30)};
  EXPECT_TRUE(run());
  expectSizes(true, false);
  EXPECT_EQ(centres(lists_.rings), centres(corners(kSmall)));
  EXPECT_THAT(centres(lists_.solids), ElementsAre(std::pair(100.0, 150.0)));
  EXPECT_THAT(centres(joinedDots()),
              ElementsAre(std::pair(380.0, 380.0), std::pair(250.0, 30.0), std::pair(300.0, 200.0)));
}

TEST_F(SplitRingsBySizeTest, ASmallSolidSeenAsADotIsFound) {
  // A plain blob larger than every ring, near the rings' outline, is looked at again.
  lists_.rings = corners(kSmall);
  lists_.dots.push_back(ellipse(100, 150, 9.5));
  EXPECT_TRUE(run());
  expectSizes(true, false);
  EXPECT_THAT(sizes(lists_.solids), ElementsAre(9.5));
  EXPECT_THAT(joinedDots(), IsEmpty());
}

TEST_F(SplitRingsBySizeTest, ABigSolidIsFoundBetweenBigRings) {
  lists_.rings = joined(corners(kBig), {ellipse(20, 20, kSmall)});
  lists_.unknowns = {solidAt(100, 200, kBig), ellipse(350, 30, kSmall), ellipse(200, 350, 20)};
  EXPECT_TRUE(run());
  expectSizes(false, true);
  EXPECT_THAT(centres(lists_.solids), ElementsAre(std::pair(100.0, 200.0)));
  EXPECT_THAT(centres(joinedDots()),
              ElementsAre(std::pair(20.0, 20.0), std::pair(350.0, 30.0), std::pair(200.0, 350.0)));
}

TEST_F(SplitRingsBySizeTest, ABigSolidIsFoundBeyondSmallRings) {
  lists_.rings = corners(kSmall);
  lists_.unknowns = {solidAt(40, 100, kBig)};
  EXPECT_TRUE(run());
  expectSizes(true, true);
  EXPECT_EQ(centres(lists_.rings), centres(corners(kSmall)));
  EXPECT_THAT(centres(lists_.solids), ElementsAre(std::pair(40.0, 100.0)));
  // The look for a small solid had put it to the rest, which joins the dots all the same.
  EXPECT_THAT(centres(joinedDots()), ElementsAre(std::pair(40.0, 100.0)));
}

TEST_F(SplitRingsBySizeTest, ARecognisedBigSolidWithSmallRingsMakesAMixedBoard) {
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(40, 100, kBig)};
  EXPECT_TRUE(run());
  expectSizes(true, true);
  EXPECT_THAT(sizes(lists_.solids), ElementsAre(kBig));
  EXPECT_THAT(joinedDots(), IsEmpty());
}

TEST_F(SplitRingsBySizeTest, EachLookLeavesItsMissesInTheRest) {
  lists_.rings = corners(kSmall);
  lists_.unknowns = {ellipse(200, 380, kBig), solidAt(40, 100, kBig)};
  EXPECT_TRUE(run());
  // The first look refuses both by size, the last one the first by place.
  EXPECT_THAT(centres(joinedDots()),
              ElementsAre(std::pair(200.0, 380.0), std::pair(40.0, 100.0), std::pair(200.0, 380.0)));
}

TEST_F(SplitRingsBySizeTest, TwoBigSolidsWithSmallRingsFail) {
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(40, 100, kBig), solidAt(40, 300, kBig)};
  expectFailure();
}

TEST_F(SplitRingsBySizeTest, TwoMissedSmallSolidsFail) {
  lists_.rings = corners(kSmall);
  lists_.unknowns = {ellipse(100, 150, kSmall), ellipse(300, 150, kSmall)};
  expectFailure();
}

TEST_F(SplitRingsBySizeTest, ThreeRingsFail) {
  lists_.rings = {ellipse(100, 100, kSmall), ellipse(300, 100, kSmall), ellipse(300, 300, kSmall)};
  lists_.solids = {solidAt(100, 150, kSmall)};
  expectFailure();
}

TEST_F(SplitRingsBySizeTest, RingsOnALineFail) {
  lists_.rings = {ellipse(0, 100, kSmall), ellipse(100, 100, kSmall), ellipse(210, 100, kSmall),
                  ellipse(400, 100, kSmall)};
  lists_.solids = {solidAt(100, 150, kSmall)};
  expectFailure();
}

TEST_F(SplitRingsBySizeTest, FiveSmallRingsAreCutToFour) {
  lists_.rings = joined(corners(kSmall), {ellipse(200, 200, kSmall, 1, 0.9)});
  lists_.solids = {solidAt(100, 150, kSmall)};
  EXPECT_TRUE(run());
  EXPECT_EQ(centres(lists_.rings), centres(corners(kSmall)));
  // What was cut is lost.
  EXPECT_THAT(joinedDots(), IsEmpty());
}

TEST_F(SplitRingsBySizeTest, TheBoardOfBigDotsKeepsItsFlag) {
  sizes_.big_dot_board = true;
  lists_.rings = corners(kSmall);
  lists_.solids = {solidAt(100, 150, kSmall)};
  EXPECT_TRUE(run());
  EXPECT_TRUE(sizes_.big_dot_board);
}

}  // namespace
