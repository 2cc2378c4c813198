#include "Tallowfen/src/markers/RingSizes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"

namespace {

using handmade::ellipse;
using handmade::sizes;
using kestrune::EllipsesByClass;
using kestrune::NearbyDots;
using kestrune::RingSizes;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr NearbyDots kNearby{5.0, 2.0};

/// One ring beside a dot of semi-axis 6.
struct RatioCase {
  const char* name;
  double semi_a;
  std::size_t bigs, smalls, dots;
};

class RingSizesRatio : public testing::TestWithParam<RatioCase> {};

TEST_P(RingSizesRatio, DecidesTheList) {
  const RatioCase& given = GetParam();
  EllipsesByClass lists;
  lists.dots = {ellipse(5, 0, 6)};
  lists.rings = {ellipse(0, 0, given.semi_a)};
  const RingSizes found = kestrune::sortRingsBySize(kNearby, lists);
  EXPECT_EQ(found.big_rings.size(), given.bigs);
  EXPECT_EQ(found.small_rings.size(), given.smalls);
  EXPECT_EQ(lists.dots.size(), given.dots);

  EllipsesByClass with_solid;
  with_solid.dots = {ellipse(5, 0, 6)};
  with_solid.solids = {ellipse(0, 0, given.semi_a)};
  const RingSizes solids = kestrune::sortRingsBySize(kNearby, with_solid);
  EXPECT_EQ(solids.big_solids.size(), given.bigs);
  EXPECT_EQ(solids.small_solids.size(), given.smalls);
  EXPECT_EQ(with_solid.dots.size(), given.dots);
}

INSTANTIATE_TEST_SUITE_P(Table, RingSizesRatio,
                         testing::Values(RatioCase{"BelowOne", 5.0, 0, 0, 2}, RatioCase{"ExactlyOne", 6.0, 0, 0, 2},
                                         RatioCase{"AboveOne", 6.0625, 0, 1, 1},
                                         RatioCase{"BelowTwo", 11.9375, 0, 1, 1},
                                         RatioCase{"ExactlyTwo", 12.0, 0, 0, 2},
                                         RatioCase{"AboveTwo", 12.0625, 1, 0, 1}),
                         [](const auto& tested) { return tested.param.name; });

TEST(RingSizes, RingWithoutDotsNearJoinsTheDots) {
  EllipsesByClass lists;
  lists.rings = {ellipse(0, 0, 30)};
  const RingSizes found = kestrune::sortRingsBySize(kNearby, lists);
  EXPECT_THAT(found.big_rings, IsEmpty());
  EXPECT_THAT(found.small_rings, IsEmpty());
  EXPECT_THAT(sizes(lists.dots), ElementsAre(30.0));
}

TEST(RingSizes, RingThatJoinedTheDotsCountsForThoseBehindIt) {
  EllipsesByClass lists;
  lists.dots = {ellipse(0, 0, 6)};
  // The first is twice a dot exactly; the mean for the others is then 9.
  lists.rings = {ellipse(2, 0, 12), ellipse(4, 0, 12)};
  lists.solids = {ellipse(6, 0, 17)};
  const RingSizes found = kestrune::sortRingsBySize(kNearby, lists);
  EXPECT_THAT(sizes(lists.dots), ElementsAre(6.0, 12.0));
  EXPECT_THAT(handmade::centres(found.small_rings), ElementsAre(std::pair(4.0, 0.0)));
  EXPECT_THAT(sizes(found.small_solids), ElementsAre(17.0));
  EXPECT_THAT(found.big_solids, IsEmpty());
}

TEST(RingSizes, KeepsTheOrderWithinEachSize) {
  EllipsesByClass lists;
  lists.dots = {ellipse(0, 0, 6)};
  lists.rings = {ellipse(1, 0, 20), ellipse(2, 0, 9), ellipse(3, 0, 19), ellipse(4, 0, 8)};
  const RingSizes found = kestrune::sortRingsBySize(kNearby, lists);
  EXPECT_THAT(sizes(found.big_rings), ElementsAre(20.0, 19.0));
  EXPECT_THAT(sizes(found.small_rings), ElementsAre(9.0, 8.0));
}

}  // namespace
