#include "check/refined/BoardPlaces.h"

#include <gtest/gtest.h>

#include "support/MemoryRun.h"

namespace polarline {
namespace {

TEST(BoardPlaces, AreThoseOfTheDescription) {
  const RenderedSet& set = MemoryRun::twoPairs();  // 9 x 7 dots.
  const BoardPlaces places(set.file("target.ini"));
  const double step = set.scene().board.step;
  EXPECT_EQ(places.of(0), cv::Point3d(0.0, 0.0, 0.0));
  EXPECT_EQ(places.of(11), cv::Point3d(2.0 * step, step, 0.0));
  EXPECT_TRUE(places.of(62));
}

TEST(BoardPlaces, KnowNoOtherIds) {
  const BoardPlaces places(MemoryRun::twoPairs().file("target.ini"));
  EXPECT_FALSE(places.of(63));
  EXPECT_FALSE(places.of(-1));
  EXPECT_FALSE(BoardPlaces().of(0));
}

}  // namespace
}  // namespace polarline
