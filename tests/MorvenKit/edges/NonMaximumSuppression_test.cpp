#include "MorvenKit/src/edges/NonMaximumSuppression.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kestrune::morvenkit;

namespace {

/// A 3 x 3 patch with a gradient at its middle; magnitude 1 there and 0 around.
EdgeGradient patch(float ix, float iy) {
  EdgeGradient g{cv::Mat_<float>(3, 3, 0.0F), cv::Mat_<float>(3, 3, 0.0F), cv::Mat_<float>(3, 3, 0.0F)};
  g.x(1, 1) = ix;
  g.y(1, 1) = iy;
  g.magnitude(1, 1) = 1.0F;
  return g;
}

bool stays(const EdgeGradient& g) { return nonMaximumSuppression(g)(1, 1) == 255; }

}  // namespace

struct DirectionCase {
  float ix, iy;
  cv::Point diagonal, straight;  ///< One side; the other is opposite.
  float t;
};

class NonMaximumSuppressionDirection : public testing::TestWithParam<DirectionCase> {};

TEST_P(NonMaximumSuppressionDirection, OnlyTheTwoNeighboursAcrossTheEdgeCount) {
  const DirectionCase& c = GetParam();
  const cv::Point middle(1, 1);
  ASSERT_TRUE(stays(patch(c.ix, c.iy)));
  for (const int side : {1, -1}) {
    const cv::Point diagonal = middle + side * c.diagonal, straight = middle + side * c.straight;
    // Only these two of this side have a say: everything else may be as large as it likes.
    EdgeGradient g = patch(c.ix, c.iy);
    g.magnitude.setTo(0.0F);
    g.magnitude(1, 1) = 1.0F;
    for (int y = 0; y < 3; ++y) {
      for (int x = 0; x < 3; ++x) {
        const cv::Point at(x, y);
        const cv::Point off = at - middle;
        if (at != middle && off != c.diagonal && off != -c.diagonal && off != c.straight && off != -c.straight)
          g.magnitude(at) = 50.0F;
      }
    }
    EXPECT_TRUE(stays(g));
    // t * diagonal + (1 - t) * straight, at least equal.
    g.magnitude(diagonal) = 1.0F;
    g.magnitude(straight) = 1.0F;
    EXPECT_TRUE(stays(g));
    g.magnitude(diagonal) = 1.0F + 0.1F;
    EXPECT_EQ(stays(g), c.t == 0.0F);
    g.magnitude(diagonal) = 1.1F / std::max(c.t, 0.1F);
    g.magnitude(straight) = 0.0F;
    EXPECT_EQ(stays(g), c.t == 0.0F);
    g.magnitude(diagonal) = 0.9F / std::max(c.t, 0.1F);
    EXPECT_TRUE(stays(g));
    g.magnitude(diagonal) = 0.0F;
    g.magnitude(straight) = 1.1F / std::max(1.0F - c.t, 0.1F);
    EXPECT_EQ(stays(g), c.t == 1.0F);
  }
}

// Columns are x, rows y: (1, -1) is right and above.
INSTANTIATE_TEST_SUITE_P(
    Octants, NonMaximumSuppressionDirection,
    testing::Values(DirectionCase{4, -1, {-1, 1}, {-1, 0}, 0.25F}, DirectionCase{-4, 1, {-1, 1}, {-1, 0}, 0.25F},
                    DirectionCase{4, 0, {-1, 1}, {-1, 0}, 0.0F}, DirectionCase{-4, 0, {-1, 1}, {-1, 0}, 0.0F},
                    DirectionCase{1, -4, {-1, 1}, {0, 1}, 0.25F}, DirectionCase{-1, 4, {-1, 1}, {0, 1}, 0.25F},
                    DirectionCase{2, -2, {-1, 1}, {0, 1}, 1.0F}, DirectionCase{-2, 2, {-1, 1}, {0, 1}, 1.0F},
                    DirectionCase{1, 4, {1, 1}, {0, 1}, 0.25F}, DirectionCase{-1, -4, {1, 1}, {0, 1}, 0.25F},
                    DirectionCase{0, 4, {1, 1}, {0, 1}, 0.0F}, DirectionCase{0, -4, {1, 1}, {0, 1}, 0.0F},
                    DirectionCase{4, 1, {1, 1}, {1, 0}, 0.25F}, DirectionCase{-4, -1, {1, 1}, {1, 0}, 0.25F},
                    DirectionCase{2, 2, {1, 1}, {1, 0}, 1.0F}, DirectionCase{-2, -2, {1, 1}, {1, 0}, 1.0F}));

TEST(NonMaximumSuppression, WithoutGradientNothingStays) { EXPECT_FALSE(stays(patch(0, 0))); }

TEST(NonMaximumSuppression, InterpolatesInSinglePrecision) {
  // A third of the way from 4 in the row to 1 on the diagonal lies 3; single-precision steps end at the float below it.
  EdgeGradient g = patch(3, 1);
  g.magnitude(1, 2) = 4.0F;
  g.magnitude(2, 2) = 1.0F;
  g.magnitude(1, 1) = std::nextafter(3.0F, 0.0F);
  EXPECT_TRUE(stays(g));
  g.magnitude(1, 1) = std::nextafter(g.magnitude(1, 1), 0.0F);
  EXPECT_FALSE(stays(g));
}

TEST(NonMaximumSuppression, FirstAndLastRowAndColumnAreSkipped) {
  EdgeGradient g{cv::Mat_<float>(4, 5, 1.0F), cv::Mat_<float>(4, 5, 0.0F), cv::Mat_<float>(4, 5, 1.0F)};
  const cv::Mat_<uchar> ridges = nonMaximumSuppression(g);
  EXPECT_EQ(cv::countNonZero(ridges), 6);
  EXPECT_EQ(cv::countNonZero(ridges(cv::Rect(1, 1, 3, 2))), 6);
}

TEST(NonMaximumSuppression, TinyImagesAreBlank) {
  EdgeGradient g{cv::Mat_<float>(2, 1, 1.0F), cv::Mat_<float>(2, 1, 0.0F), cv::Mat_<float>(2, 1, 1.0F)};
  EXPECT_EQ(cv::countNonZero(nonMaximumSuppression(g)), 0);
}
