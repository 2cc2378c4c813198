#include "refine/edge/EdgeFit.h"

#include <gtest/gtest.h>

#include <numbers>

#include "refine/EllipsePicture.h"
#include "refine/edge/EdgePixels.h"

namespace {

struct Fitted {
  std::optional<refine::EdgeFit> fit;
  refine::EdgeCounts counts;
};

/// Fits the first mark of a picture, from a start that is a tenth of a pixel off.
Fitted fitted(const cv::Mat& picture, const EllipsePicture& drawing, std::size_t edges, double noise) {
  refine::EdgeModel start;
  start.outline = EllipsePicture::outlineOf(drawing.marks[0]);
  start.outline.centre += cv::Point2d(0.1, -0.06);
  start.outline.xx *= 1.03;
  start.edges = edges;
  start.ratio = {1.0, drawing.marks[0].hole * 1.02};
  start.light_origin = start.outline.centre;
  refine::EdgeFitting work;
  if (noise > 0.0) work.noise = refine::NoiseLevel{noise * noise + 1.0 / 12.0, 0.0, 0.01};
  Fitted result;
  result.counts =
      refine::collectEdgePixels(refine::greyPictureOf(picture), start, {}, refine::PixelChoice::kFlatToo, work.table);
  result.fit = refine::fitEdge(start, work);
  return result;
}

class EdgeFitCentre : public ::testing::TestWithParam<EllipsePicture::Mark> {};

/// The rounding to whole greys and the fine grid of the brute force leave some thousandths.
TEST_P(EdgeFitCentre, IsTheTrueOneWithoutNoise) {
  EllipsePicture drawing;
  drawing.marks = {GetParam()};
  const Fitted result = fitted(drawing.digitised(0.0, 1), drawing, GetParam().hole > 0.0 ? 2 : 1, 0.0);
  ASSERT_TRUE(result.fit);
  EXPECT_NEAR(result.fit->model.outline.centre.x, GetParam().centre.x, 0.004);
  EXPECT_NEAR(result.fit->model.outline.centre.y, GetParam().centre.y, 0.004);
  EXPECT_NEAR(result.fit->model.paper, 200.0, 2.0);
  EXPECT_NEAR(result.fit->model.ink, 20.0, 4.0);
  EXPECT_NEAR(result.fit->model.blur, 0.757, 0.05);
  EXPECT_EQ(result.fit->outliers, 0);
}

INSTANTIATE_TEST_SUITE_P(Marks, EdgeFitCentre,
                         ::testing::Values(EllipsePicture::Mark{{20.0, 18.0}, 3.5, 3.5},
                                           EllipsePicture::Mark{{20.37, 17.81}, 5.0, 5.0},
                                           EllipsePicture::Mark{{19.5, 18.5}, 9.0, 6.5, 0.7},
                                           EllipsePicture::Mark{{20.21, 18.33}, 10.0, 9.0, 0.3, 0.6}));

/// A circle of radius r, contrast A and blur s, in noise of the standard deviation n: pi r A^2 / (2 sqrt(pi) s n^2) is
/// known of each coordinate.
TEST(EdgeFitCovariance, IsTheBoundOfTheGradientsEnergy) {
  EllipsePicture drawing;
  drawing.marks = {{{20.2, 18.3}, 8.0, 8.0}};
  const double noise = 2.0;
  const Fitted result = fitted(drawing.digitised(noise, 7), drawing, 1, noise);
  ASSERT_TRUE(result.fit);
  const double s = std::sqrt(0.49 + 1.0 / 12.0);
  const double known =
      std::numbers::pi * 8.0 * 180.0 * 180.0 / (2.0 * std::sqrt(std::numbers::pi) * s * (noise * noise + 1.0 / 12.0));
  EXPECT_NEAR(result.fit->covariance(0, 0) * known, 1.0, 0.12);
  EXPECT_NEAR(result.fit->covariance(1, 1) * known, 1.0, 0.12);
  EXPECT_NEAR(result.fit->covariance(0, 1) * known, 0.0, 0.12);
}

TEST(EdgeFitRobustness, SeesABarOverTheEdge) {
  EllipsePicture drawing;
  drawing.marks = {{{20.2, 18.3}, 8.0, 8.0}};
  cv::Mat picture = drawing.digitised(0.8, 7);
  picture(cv::Rect(24, 0, 5, picture.rows)).setTo(110);
  const Fitted result = fitted(picture, drawing, 1, 0.8);
  ASSERT_TRUE(result.fit);
  EXPECT_GT(result.fit->outliers, result.fit->on_edge / 20);
  EXPECT_NEAR(result.fit->model.outline.centre.x, 20.2, 0.15);
  EXPECT_NEAR(result.fit->model.outline.centre.y, 18.3, 0.15);
}

TEST(EdgeFitPixels, AreTooFewForAModel) {
  refine::EdgeFitting work;
  work.table.clear({0, 0});
  for (int k = 0; k < 10; ++k) work.table.add(k, 0, 10.0F);
  EXPECT_FALSE(refine::fitEdge({}, work));
}

}  // namespace
