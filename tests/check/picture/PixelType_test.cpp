#include "check/picture/PixelType.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace {

TEST(PixelType, IsToldInWords) {
  EXPECT_EQ(pixelTypeOf(CV_8UC1), "8-bit grey");
  EXPECT_EQ(pixelTypeOf(CV_8UC3), "8-bit, 3 channels");
  EXPECT_EQ(pixelTypeOf(CV_16UC1), "16-bit grey");
  EXPECT_EQ(pixelTypeOf(CV_16SC2), "16-bit signed, 2 channels");
  EXPECT_EQ(pixelTypeOf(CV_32FC1), "32-bit floating point grey");
  EXPECT_EQ(pixelTypeOf(CV_64FC4), "64-bit floating point, 4 channels");
}

}  // namespace
