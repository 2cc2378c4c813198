#include "polar/run/CropOrigin.h"

#include <gtest/gtest.h>

namespace {

TEST(CropOrigin, LeavesTheOddPixelBehind) {
  EXPECT_EQ(cropOrigin({640, 480}, {320, 240}), cv::Point(160, 120));
  EXPECT_EQ(cropOrigin({641, 479}, {320, 240}), cv::Point(160, 119));
  EXPECT_EQ(cropOrigin({640, 480}, {640, 480}), cv::Point(0, 0));
}

}  // namespace
