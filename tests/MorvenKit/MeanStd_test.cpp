#include "MorvenKit/MeanStd.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

using kestrune::morvenkit::calcMeanStd;
using kestrune::morvenkit::MeanStd;

TEST(MeanStd, HandFigures) {
  const MeanStd result = calcMeanStd({{1, 10}, {3, 10}, {1, 14}, {3, 14}});
  EXPECT_EQ(result.mx, 2.0F);
  EXPECT_EQ(result.my, 12.0F);
  EXPECT_EQ(result.sx, 1.0F);
  EXPECT_EQ(result.sy, 2.0F);
}

TEST(MeanStd, EmptyListThrows) {
  try {
    calcMeanStd({});
    FAIL() << "nothing thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_STREQ(error.what(), "[calcMeanStd] no input data");
  }
}

TEST(MeanStd, SumsAreOfSinglePrecision) {
  // 2^24 + 1 is no float: in list order both ones are lost, in double they would count and give 5592406.
  EXPECT_EQ(calcMeanStd({{16777216, 0}, {1, 0}, {1, 0}}).mx, 5592405.5F);
  EXPECT_EQ(calcMeanStd({{1, 0}, {1, 0}, {16777216, 0}}).mx, 5592406.0F);
}

TEST(MeanStd, EqualPointsNeverGiveNotANumber) {
  for (int i = 1; i < 500; ++i) {
    const float value = static_cast<float>(i) * 0.1F;
    const MeanStd result = calcMeanStd(std::vector<cv::Point2f>(7, {value, -value}));
    EXPECT_TRUE(result.sx >= 0.0F && result.sy >= 0.0F) << value;
  }
}
