#include "Tallowfen/src/numbering/NumberedPoints.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "HandMadeEllipses.h"

namespace {

using kestrune::NumberedPoints;
using kestrune::RingTargetConfig;
using testing::ElementsAre;
using testing::IsEmpty;

NumberedPoints numberedAt(const std::vector<std::pair<double, double>>& centres) {
  NumberedPoints numbered;
  for (const auto& [x, y] : centres) {
    kestrune::Ellipse ellipse = handmade::ellipse(x, y, 5);
    ellipse.id = static_cast<std::int32_t>(numbered.points.size());
    numbered.points.push_back(ellipse);
    numbered.identified_ellipses.push_back(ellipse);
  }
  numbered.unidentified.emplace_back();
  return numbered;
}

std::vector<int> ids(const NumberedPoints& numbered) {
  std::vector<int> found;
  for (std::size_t i = 0; i < numbered.points.size(); ++i) {
    found.push_back(numbered.points[i].id);
    EXPECT_EQ(numbered.identified_ellipses[i].id, numbered.points[i].id);
  }
  EXPECT_EQ(numbered.identified_ellipses.size(), numbered.points.size());
  EXPECT_EQ(numbered.unidentified.size(), 1U) << "filters leave the unnumbered points";
  return found;
}

NumberedPoints fiveInARow() { return numberedAt({{10, 10}, {20, 10}, {30, 10}, {40, 10}, {50, 10}}); }

RingTargetConfig keeping(std::uint16_t detection_switch, const std::vector<std::uint16_t>& detection_id) {
  RingTargetConfig config;
  config.detection_switch = detection_switch;
  config.detection_id = detection_id;
  return config;
}

std::vector<int> afterIds(const RingTargetConfig& config) {
  NumberedPoints numbered = fiveInARow();
  filterByIds(config, numbered);
  return ids(numbered);
}

TEST(NumberedPointsFilterByIds, KeepsTheNamedIdsInTheOrderOfThePoints) {
  EXPECT_THAT(afterIds(keeping(1, {4, 1, 3, 99})), ElementsAre(1, 3, 4));
}

TEST(NumberedPointsFilterByIds, AnIdNamedTwiceIsKeptTwice) {
  EXPECT_THAT(afterIds(keeping(1, {2, 0, 2, 3})), ElementsAre(0, 2, 2, 3));
}

TEST(NumberedPointsFilterByIds, ThreeIdsSwitchItOff) {
  EXPECT_THAT(afterIds(keeping(1, {4, 1, 3})), ElementsAre(0, 1, 2, 3, 4));
}

TEST(NumberedPointsFilterByIds, OnlyASwitchOfOneSwitchesItOn) {
  EXPECT_THAT(afterIds(keeping(0, {1, 1, 1, 1})), ElementsAre(0, 1, 2, 3, 4));
  EXPECT_THAT(afterIds(keeping(2, {1, 1, 1, 1})), ElementsAre(0, 1, 2, 3, 4));
}

TEST(NumberedPointsFilterByIds, NoneOfTheIdsLeavesNothing) {
  EXPECT_THAT(afterIds(keeping(1, {7, 8, 9, 10})), IsEmpty());
}

std::vector<int> afterRegion(const std::vector<float>& region, cv::Size working,
                             const std::vector<std::pair<double, double>>& centres) {
  NumberedPoints numbered = numberedAt(centres);
  filterByRegion(region, working, numbered);
  return ids(numbered);
}

TEST(NumberedPointsFilterByRegion, BoundsAreExclusive) {
  EXPECT_THAT(afterRegion({0.25F, 0.75F, 0.25F, 0.75F}, {100, 80},
                          {{25, 40}, {25.5, 40}, {75, 40}, {74.5, 40}, {50, 20}, {50, 20.5}, {50, 60}, {50, 59.5}}),
              ElementsAre(1, 3, 5, 7));
}

TEST(NumberedPointsFilterByRegion, OrderIsTwoBoundsOfXThenTwoOfY) {
  EXPECT_THAT(afterRegion({0.0F, 0.5F, 0.5F, 1.0F}, {100, 100}, {{25, 75}, {75, 25}, {25, 25}, {75, 75}}),
              ElementsAre(0));
}

TEST(NumberedPointsFilterByRegion, BoundsAreSinglePrecisionProducts) {
  // 0.1F * 641 in single precision is 64.0999985, in double 64.10000095.
  const float bound = 0.1F * 641.0F;
  const double between = (static_cast<double>(bound) + static_cast<double>(0.1F) * 641.0) / 2.0;
  ASSERT_LT(static_cast<double>(bound), between);
  EXPECT_THAT(afterRegion({0.1F, 1.0F, 0.0F, 1.0F}, {641, 641}, {{between, 5}}), ElementsAre(0));
  EXPECT_THAT(afterRegion({0.0F, 0.1F, 0.0F, 1.0F}, {641, 641}, {{between, 5}}), IsEmpty());
}

TEST(NumberedPointsFilterByRegion, WholeRegionOfADoubledImageKeepsEveryPoint) {
  EXPECT_THAT(afterRegion({0, 1, 0, 1}, {1280, 960}, {{1, 1}, {639, 479}, {320, 240}}), ElementsAre(0, 1, 2));
}

TEST(NumberedPointsFilterByRegion, WholeRegionOfAHalvedImageKeepsTheUpperLeftQuarter) {
  EXPECT_THAT(afterRegion({0, 1, 0, 1}, {1024, 768}, {{1, 1}, {1023, 767}, {1025, 5}, {5, 769}}), ElementsAre(0, 1));
}

TEST(NumberedPointsFilterByRegion, OffWithoutFourValues) {
  EXPECT_THAT(afterRegion({}, {10, 10}, {{100, 100}}), ElementsAre(0));
  EXPECT_THAT(afterRegion({0, 0, 0}, {10, 10}, {{100, 100}}), ElementsAre(0));
}

}  // namespace
