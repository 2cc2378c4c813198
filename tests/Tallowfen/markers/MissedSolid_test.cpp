#include "Tallowfen/src/markers/MissedSolid.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "HandMadeEllipses.h"

namespace {

using handmade::centres;
using handmade::corners;
using handmade::dotGrid;
using handmade::ellipse;
using handmade::List;
using kestrune::MissedSolidPlace;
using testing::ElementsAre;

/// Dots of semi-axis 6 every 20 pixels; rings in the square from (100, 100) to (300, 300).
struct Found {
  List solids;
  List rest;
};

Found look(const List& unknowns, const List& rings, MissedSolidPlace place) {
  Found found;
  const kestrune::NearbyDots nearby{5.0, 2.0};
  findMissedSolids(nearby, dotGrid(21, 20.0, 6.0), unknowns, rings, place, found.solids, found.rest);
  return found;
}

struct PlaceCase {
  const char* name;
  MissedSolidPlace place;
  double x, y, semi_a;
  bool fits;
};

class MissedSolidTable : public testing::TestWithParam<PlaceCase> {};

TEST_P(MissedSolidTable, FitsOrGoesToTheRest) {
  const PlaceCase& given = GetParam();
  const Found found = look({ellipse(given.x, given.y, given.semi_a)}, corners(9), given.place);
  EXPECT_EQ(found.solids.size(), given.fits ? 1U : 0U);
  EXPECT_EQ(found.rest.size(), given.fits ? 0U : 1U);
}

constexpr auto kQuarter = MissedSolidPlace::kSmallQuarterWay;
constexpr auto kBetween = MissedSolidPlace::kBigBetween;
constexpr auto kBeyond = MissedSolidPlace::kBigBeyond;

// Left edge: 200 pixels long. At u from its upper end the distance test reads |u - (200 - u) / 3| < 10.
INSTANTIATE_TEST_SUITE_P(
    Quarter, MissedSolidTable,
    testing::Values(
        PlaceCase{"AQuarterWay", kQuarter, 100, 150, 9, true},
        PlaceCase{"AQuarterFromTheOtherEnd", kQuarter, 100, 250, 9, true},
        PlaceCase{"TenPixelsTooFarExactly", kQuarter, 100, 157.5, 9, false},
        PlaceCase{"JustWithinTenPixels", kQuarter, 100, 157.25, 9, true},
        PlaceCase{"TenPixelsTooNearExactly", kQuarter, 100, 142.5, 9, false},
        PlaceCase{"HalfWay", kQuarter, 100, 200, 9, false}, PlaceCase{"RatioOneExactly", kQuarter, 100, 150, 6, true},
        PlaceCase{"RatioBelowOne", kQuarter, 100, 150, 5.9375, false},
        PlaceCase{"RatioTwoExactly", kQuarter, 100, 150, 12, true},
        PlaceCase{"RatioAboveTwo", kQuarter, 100, 150, 12.0625, false},
        // 6 pixels aside: the two directions are atan(6/50) + atan(6/150) = 9.1 degrees apart; 7 aside: 10.6.
        PlaceCase{"NineDegreesOff", kQuarter, 106, 150, 9, true},
        PlaceCase{"OverTenDegreesOff", kQuarter, 107, 150, 9, false}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(Between, MissedSolidTable,
                         testing::Values(PlaceCase{"HalfWayIsAsGood", kBetween, 100, 200, 18, true},
                                         PlaceCase{"OnADiagonal", kBetween, 200, 200, 18, true},
                                         PlaceCase{"RatioTwoExactly", kBetween, 100, 200, 12, true},
                                         PlaceCase{"RatioBelowTwo", kBetween, 100, 200, 11.9375, false},
                                         // 13 pixels aside half way: 2 atan(13/100) = 14.8 degrees; 14 aside: 15.9.
                                         PlaceCase{"UnderFifteenDegrees", kBetween, 113, 200, 18, true},
                                         PlaceCase{"OverFifteenDegrees", kBetween, 114, 200, 18, false},
                                         PlaceCase{"Beyond", kBetween, 50, 100, 18, false}),
                         [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(Beyond, MissedSolidTable,
                         testing::Values(PlaceCase{"OnTheLineOfTwoRings", kBeyond, 50, 100, 18, true},
                                         PlaceCase{"Between", kBeyond, 100, 200, 18, false},
                                         // From (50, 100 + d) the two rings of the upper edge are atan(d/50) -
                                         // atan(d/250) apart: 14.97 degrees for 17.1, 15.05 for 17.2.
                                         PlaceCase{"UnderFifteenDegrees", kBeyond, 50, 117.1, 18, true},
                                         PlaceCase{"OverFifteenDegrees", kBeyond, 50, 117.2, 18, false},
                                         PlaceCase{"RatioTwoExactly", kBeyond, 50, 100, 12, true},
                                         PlaceCase{"RatioBelowTwo", kBeyond, 50, 100, 11.9375, false}),
                         [](const auto& tested) { return tested.param.name; });

TEST(MissedSolid, AnUnknownIsTakenOnceHoweverManyPairsItFits) {
  // (200, 200) lies on both diagonals, in both directions.
  EXPECT_EQ(look({ellipse(200, 200, 18)}, corners(9), kBetween).solids.size(), 1U);
}

TEST(MissedSolid, OnARingItselfThereIsNoDirection) {
  // The pairs with the ring under it have no direction; of the others none is straight through a corner.
  EXPECT_EQ(look({ellipse(100, 100, 18)}, corners(9), kBetween).solids.size(), 0U);
}

TEST(MissedSolid, WithoutDotsNearTheFirstRingTheSizeRefusesNothing) {
  Found found;
  findMissedSolids({5.0, 2.0}, {}, {ellipse(100, 150, 500)}, corners(9), kQuarter, found.solids, found.rest);
  EXPECT_EQ(found.solids.size(), 1U);
}

TEST(MissedSolid, OnlyTheFirstFourRingsMakePairs) {
  List rings = corners(9);
  rings.push_back(ellipse(100, 700, 9));
  // A quarter of the way from (100, 300) to the fifth, on no line of the four within the distance.
  EXPECT_EQ(look({ellipse(100, 400, 9)}, rings, kQuarter).solids.size(), 0U);
}

TEST(MissedSolid, KeepsTheOrderOfTheUnknowns) {
  const Found found =
      look({ellipse(0, 0, 9), ellipse(100, 150, 9), ellipse(13, 0, 9), ellipse(100, 250, 9)}, corners(9), kQuarter);
  EXPECT_THAT(centres(found.solids), ElementsAre(std::pair(100.0, 150.0), std::pair(100.0, 250.0)));
  EXPECT_THAT(centres(found.rest), ElementsAre(std::pair(0.0, 0.0), std::pair(13.0, 0.0)));
}

struct OutlineCase {
  const char* name;
  double x, y, semi_a;
  bool taken;
};

class MissedSolidNearOutline : public testing::TestWithParam<OutlineCase> {};

TEST_P(MissedSolidNearOutline, AreTaken) {
  const OutlineCase& given = GetParam();
  List dots = {ellipse(given.x, given.y, given.semi_a)};
  List unknowns;
  kestrune::takeLargeDotsNearOutline(corners(4), dots, unknowns);
  EXPECT_EQ(unknowns.size(), given.taken ? 1U : 0U);
  EXPECT_EQ(dots.size(), given.taken ? 0U : 1U);
}

// Box from (100, 100) to (300, 300), largest ring 4, reach of a dot of 5: 50 pixels.
INSTANTIATE_TEST_SUITE_P(Table, MissedSolidNearOutline,
                         testing::Values(OutlineCase{"NearTheLeft", 149, 200, 5, true},
                                         OutlineCase{"NearTheRight", 251, 200, 5, true},
                                         OutlineCase{"NearTheTop", 200, 51, 5, true},
                                         OutlineCase{"NearTheBottom", 200, 349, 5, true},
                                         OutlineCase{"FiftyPixelsFromTheLeftExactly", 150, 200, 5, false},
                                         OutlineCase{"FiftyPixelsFromTheRightExactly", 250, 200, 5, false},
                                         OutlineCase{"FiftyPixelsFromTheTopExactly", 200, 50, 5, false},
                                         OutlineCase{"FiftyPixelsFromTheBottomExactly", 200, 350, 5, false},
                                         OutlineCase{"InTheMiddle", 200, 200, 5, false},
                                         OutlineCase{"AsLargeAsTheLargestRing", 101, 200, 4, false},
                                         OutlineCase{"OutsideOfBothColumnsButInARow", 900, 101, 5, true}),
                         [](const auto& tested) { return tested.param.name; });

TEST(MissedSolidNearOutline, WithoutRingsOnlyTheBoxesOwnStartCounts) {
  List dots = {ellipse(-20, 500, 5), ellipse(500, 500, 5)};
  List unknowns;
  kestrune::takeLargeDotsNearOutline({}, dots, unknowns);
  // The box runs from 100000 to -1 then; the first dot is 19 pixels from -1.
  EXPECT_THAT(centres(unknowns), ElementsAre(std::pair(-20.0, 500.0)));
  EXPECT_THAT(centres(dots), ElementsAre(std::pair(500.0, 500.0)));
}

}  // namespace
