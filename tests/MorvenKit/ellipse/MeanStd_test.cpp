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
  EXPECT_EQ(calcMeanStd({{0, 16777216}, {0, 1}, {0, 1}}).my, 5592405.5F);
  EXPECT_EQ(calcMeanStd({{0, 1}, {0, 1}, {0, 16777216}}).my, 5592406.0F);
}

TEST(MeanStd, SumsOfSquaresAreOfSinglePrecision) {
  // 4096^2 is 2^24, beside which a one is lost: 1930.40137, where double sums give 1930.40151.
  const MeanStd result = calcMeanStd({{4096, 4096}, {1, 1}, {1, 1}});
  EXPECT_EQ(result.sx, 1930.40137F);
  EXPECT_EQ(result.sy, 1930.40137F);
}

TEST(MeanStd, TheSquareOfTheMeanIsOfSinglePrecision) {
  // 4097^2 is 16785409, of which a float keeps 16785408: the deviation of 1 becomes the root of 2. Of 4097 and 4099 it
  // becomes nothing.
  const MeanStd grown = calcMeanStd({{4096, 4098}, {4098, 4096}}), gone = calcMeanStd({{4097, 4099}, {4099, 4097}});
  EXPECT_EQ(grown.sx, std::sqrt(2.0F));
  EXPECT_EQ(grown.sy, std::sqrt(2.0F));
  EXPECT_EQ(gone.sx, 0.0F);
  EXPECT_EQ(gone.sy, 0.0F);
}

TEST(MeanStd, EqualPointsNeverGiveNotANumber) {
  for (int i = 1; i < 500; ++i) {
    const float value = static_cast<float>(i) * 0.1F;
    const MeanStd result = calcMeanStd(std::vector<cv::Point2f>(7, {value, -value}));
    EXPECT_TRUE(result.sx >= 0.0F && result.sy >= 0.0F) << value;
  }
}
