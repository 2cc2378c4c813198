#include "check/picture/MissingPlaces.h"

#include <gtest/gtest.h>

#include "GridDetection.h"

namespace {

TEST(MissingPlaces, AreCarriedOnFromTheNeighbours) {
  polarline::Detection detection = gridDetection(5, 5, 20.0);
  drop(detection, 12);
  const auto places = missingPlaces(detection);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_NEAR(places[0].x, 20 + 2 * 20, 1e-9);
  EXPECT_NEAR(places[0].y, 30 + 2 * 20, 1e-9);
}

TEST(MissingPlaces, OfACornerComeFromTwoSides) {
  polarline::Detection detection = gridDetection(5, 5, 20.0);
  drop(detection, 0);
  detection.dots[0].y += 1.0;  // Beside it in its row: told twice as far from there, once from below.
  const auto places = missingPlaces(detection);
  ASSERT_EQ(places.size(), 1U);
  EXPECT_NEAR(places[0].x, 20, 1e-9);
  EXPECT_NEAR(places[0].y, 30 + (2.0 + 0.0) / 2, 1e-9);
}

TEST(MissingPlaces, WithoutTwoNeighboursInARowThereIsNone) {
  polarline::Detection detection = gridDetection(2, 2, 20.0);
  drop(detection, 3);
  EXPECT_TRUE(missingPlaces(detection).empty());
  EXPECT_TRUE(missingPlaces(gridDetection(3, 3, 20.0)).empty()) << "of a whole board";
}

}  // namespace
