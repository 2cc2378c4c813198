#include "diagnose/warnings/OtherPictures.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../WatchedScene.h"

namespace diagnose {
namespace {

TEST(OtherPictures, ExplainNothingWhereNothingFits) {
  WatchedScene watched;
  watched.tellFacts();
  const CalibratedCamera camera(*watched.facts.calib, 0, watched.facts.model);
  std::vector<BoardSight> sights;
  // Dots that bend up and down by some pixels, as no calibration of other pictures makes them.
  for (int id = 0; id < 99; ++id)
    sights.push_back({id,
                      watched.facts.board.at(static_cast<std::size_t>(id)),
                      {60.0 + 20.0 * (id % 11), 50.0 + 18.0 * (id / 11) + (id % 2 == 0 ? 2.0 : -2.0)}});
  const Explained explained = explainMisfit(camera, sights, {320, 256}, 0.7);
  EXPECT_EQ(explained.text, "");
  EXPECT_FALSE(explained.is_board);
}

}  // namespace
}  // namespace diagnose
