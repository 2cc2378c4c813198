#include "check/picture/LabelMesh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "GridDetection.h"

namespace {

std::vector<int> idsOf(const polarline::Detection& detection, const cv::Size2d& size) {
  std::vector<int> ids;
  for (const polarline::Dot* dot : labelledDots(detection, size)) ids.push_back(dot->id);
  return ids;
}

TEST(LabelMesh, WithRoomEveryDotBearsItsIdAndTheCornersComeFirst) {
  const auto ids = idsOf(gridDetection(3, 4, 40.0), {30.0, 12.0});
  EXPECT_EQ(ids, (std::vector<int>{0, 3, 8, 11, 1, 2, 4, 5, 6, 7, 9, 10}));
}

TEST(LabelMesh, WithoutRoomEverySecondOrFifthDoes) {
  const polarline::Detection detection = gridDetection(6, 7, 20.0);
  EXPECT_EQ(idsOf(detection, {30.0, 12.0}), (std::vector<int>{0, 6, 35, 41, 2, 4, 14, 16, 18, 20, 28, 30, 32, 34}));
  EXPECT_EQ(idsOf(detection, {90.0, 12.0}), (std::vector<int>{0, 6, 35, 41, 5, 40}));
}

TEST(LabelMesh, TallIdsCountAsWideOnes) { EXPECT_EQ(idsOf(gridDetection(6, 7, 20.0), {5.0, 90.0}).size(), 6U); }

// 40 x 40 is more than a thousand: every second row and column, and the three corners that are not on it.
TEST(LabelMesh, IdsAreAThousandAtMost) { EXPECT_EQ(idsOf(gridDetection(40, 40, 90.0), {30.0, 12.0}).size(), 403U); }

}  // namespace
