#include "report/measure/BoardFit.h"

#include <gtest/gtest.h>

#include <cmath>

#include "MadeDocument.h"

namespace polarline {
namespace {

const Board& board() {
  static const Board made(made_document::json(made_document::check()));
  return made;
}

/// Turned a quarter about the depth axis and moved; one dot is missing.
TEST(BoardFitOf, AMovedBoardIsNothing) {
  DotLists dots = made_document::dots();
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    const double x = dots.x[k];
    dots.x[k] = 5.0 - dots.y[k];
    dots.y[k] = x + 7.0;
  }
  dots.x[3] = NAN;
  const BoardFit fit = fitBoard(dots, board());
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    if (k == 3) {
      EXPECT_TRUE(std::isnan(fit.off_x[k]) && std::isnan(fit.depth_error[k]));
      continue;
    }
    EXPECT_NEAR(std::hypot(fit.off_x[k], fit.off_y[k], fit.off_z[k]), 0.0, 1e-12);
    EXPECT_NEAR(fit.depth_error[k], 0.0, 1e-12);
  }
}

/// A board that looks at the camera with 1 % more size: each dot is off by a hundredth of its way from the middle.
TEST(BoardFitOf, AStretchedBoardIsOffByTheStretch) {
  DotLists dots = made_document::dots();
  for (std::size_t k = 0; k < dots.id.size(); ++k) {
    dots.x[k] *= 1.01;
    dots.y[k] *= 1.01;
  }
  const BoardFit fit = fitBoard(dots, board());
  EXPECT_NEAR(fit.off_x[0], -0.15, 1e-12);
  EXPECT_NEAR(fit.off_y[0], -0.1, 1e-12);
  EXPECT_NEAR(fit.off_x[11], 0.15, 1e-12);
  EXPECT_NEAR(fit.off_z[0], 0.0, 1e-12);
}

/// Depths that alternate cannot be turned away.
TEST(BoardFitDepth, IsMeasuredLessFitted) {
  DotLists dots = made_document::dots();
  for (const std::size_t corner : {0U, 11U}) dots.z[corner] += 0.3;
  for (const std::size_t corner : {3U, 8U}) dots.z[corner] -= 0.3;
  const BoardFit fit = fitBoard(dots, board());
  EXPECT_NEAR(fit.depth_error[0], 0.3, 2e-3);
  EXPECT_NEAR(fit.depth_error[3], -0.3, 2e-3);
  EXPECT_NEAR(fit.off_z[0], 0.3, 2e-3);
}

TEST(BoardFitOf, FewDotsAreNoNumbers) {
  DotLists dots;
  dots.id = {0, 1};
  dots.x = dots.y = dots.z = {1.0, 2.0};
  EXPECT_TRUE(std::isnan(fitBoard(dots, board()).off_x[0]));
  dots.x.clear();
  EXPECT_EQ(fitBoard(dots, board()).off_x.size(), 2U);
}

}  // namespace
}  // namespace polarline
