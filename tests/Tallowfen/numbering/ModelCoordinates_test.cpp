#include "Tallowfen/src/numbering/ModelCoordinates.h"

#include <gtest/gtest.h>

#include <limits>

#include "BoardView.h"
#include "Tallowfen/src/ellipses/Centres.h"

namespace {

using kestrune::modelFromImage;
using kestrune::nearestFive;
using kestrune::truncated;

TEST(NearestFive, HalvesGoAwayFromZero) {
  EXPECT_EQ(nearestFive(0.0F), 0);
  EXPECT_EQ(nearestFive(2.4F), 0);
  EXPECT_EQ(nearestFive(2.5F), 5);
  EXPECT_EQ(nearestFive(7.4F), 5);
  EXPECT_EQ(nearestFive(7.5F), 10);
  EXPECT_EQ(nearestFive(12.5F), 15) << "not to the even multiple";
  EXPECT_EQ(nearestFive(-2.4F), 0);
  EXPECT_EQ(nearestFive(-2.5F), -5);
  EXPECT_EQ(nearestFive(-12.5F), -15);
}

TEST(NearestFive, StaysWithinAnInteger) {
  EXPECT_EQ(nearestFive(1e20F), std::numeric_limits<int>::max());
  EXPECT_EQ(nearestFive(-1e20F), std::numeric_limits<int>::min());
  EXPECT_EQ(nearestFive(std::numeric_limits<float>::infinity()), std::numeric_limits<int>::max());
  EXPECT_EQ(nearestFive(std::numeric_limits<float>::quiet_NaN()), std::numeric_limits<int>::min());
}

TEST(Truncated, CutsTheFraction) {
  EXPECT_EQ(truncated(17.5F), 17);
  EXPECT_EQ(truncated(-17.5F), -17);
  EXPECT_EQ(truncated(2147483648.0F), std::numeric_limits<int>::max());
  EXPECT_EQ(truncated(-2147483648.0F), std::numeric_limits<int>::min());
}

TEST(ModelFromImage, FourPairsLayEveryDotOnTheModel) {
  const BoardView view(9, 11, tiltedCamera(30, 1, 0.01));
  std::vector<cv::Point2f> image, model;
  for (const auto& [column, row] : {std::pair(0, 0), {10, 0}, {10, 8}, {0, 8}}) {
    image.push_back(kestrune::centreOf(view.all[view.position(column, row)]));
    model.emplace_back(static_cast<float>(column) * 10.0F, static_cast<float>(row) * 10.0F);
  }
  const std::vector<cv::Point2f> mapped = modelFromImage(image, model, view.all);
  ASSERT_EQ(mapped.size(), 99U);
  for (std::size_t i = 0; i < mapped.size(); ++i) {
    EXPECT_NEAR(mapped[i].x, 10.0 * static_cast<double>(i % 11), 0.01);
    EXPECT_NEAR(mapped[i].y, 10.0 * static_cast<double>(i / 11), 0.01);
  }
}

}  // namespace
