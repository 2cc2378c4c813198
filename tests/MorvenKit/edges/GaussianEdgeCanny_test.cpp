#include "MorvenKit/src/edges/GaussianEdgeCanny.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using kestrune::morvenkit::GaussianEdgeCanny;

namespace {

cv::Mat edgesOf(const cv::Mat& grey) {
  cv::Mat image;
  grey.convertTo(image, CV_32F);
  return GaussianEdgeCanny(image);
}

/// Dark up to column 29, bright from column 31, the middle between them at column 30.
cv::Mat step() {
  cv::Mat grey = drawing::sheet(60, 50, 40);
  grey(cv::Rect(31, 0, 29, 50)).setTo(200);
  grey.col(30).setTo(120);
  return grey;
}

}  // namespace

TEST(GaussianEdgeCanny, UniformImageHasNoEdge) { EXPECT_EQ(cv::countNonZero(edgesOf(drawing::sheet(60, 50))), 0); }

TEST(GaussianEdgeCanny, StepGivesOneColumnAtItsMiddle) {
  const cv::Mat edges = edgesOf(step());
  EXPECT_EQ(edges.type(), CV_8UC1);
  // Rows 1 to 48: the first and the last are skipped.
  EXPECT_EQ(cv::countNonZero(edges), 48);
  EXPECT_EQ(cv::countNonZero(edges(cv::Rect(30, 1, 1, 48)) == 255), 48);
}

TEST(GaussianEdgeCanny, StepAlongTheRows) {
  const cv::Mat edges = edgesOf(step().t());
  EXPECT_EQ(cv::countNonZero(edges), 48);
  EXPECT_EQ(cv::countNonZero(edges(cv::Rect(1, 30, 48, 1)) == 255), 48);
}

TEST(GaussianEdgeCanny, PolarityDoesNotMatter) {
  const cv::Mat inverted = 255 - step();
  EXPECT_EQ(cv::countNonZero(edgesOf(inverted) != edgesOf(step())), 0);
}

TEST(GaussianEdgeCanny, FaintEdgesBesideAStrongOneGo) {
  // The magnitudes are shares of the greatest, the limits multiples of their mean: the faint edge is below 1.5 means.
  cv::Mat grey = step();
  grey(cv::Rect(0, 0, 10, 50)).setTo(39);
  const cv::Mat edges = edgesOf(grey);
  EXPECT_EQ(cv::countNonZero(edges(cv::Rect(0, 0, 25, 50))), 0);
  EXPECT_EQ(cv::countNonZero(edges), 48);
}

TEST(GaussianEdgeCanny, DiscGivesAClosedThinOutline) {
  cv::Mat grey = drawing::sheet(100, 90);
  drawing::dot(grey, 50.2, 45.3, 15);
  const cv::Mat edges = edgesOf(grey);
  const auto tree = kestrune::morvenkit::findContourTree(edges);
  ASSERT_EQ(tree.count(), 2);
  EXPECT_TRUE(tree.holds(tree.firstChild(0)));
  for (int y = 0; y < edges.rows; ++y) {
    for (int x = 0; x < edges.cols; ++x) {
      if (edges.at<uchar>(y, x) == 0) continue;
      EXPECT_NEAR(std::hypot(x - 50.2, y - 45.3), 15.0, 1.2);
    }
  }
}

TEST(GaussianEdgeCanny, TheSurroundContinuesTheImage) {
  // A faint step on a bright ground: beside a dark surround it would be nothing.
  cv::Mat grey = drawing::sheet(60, 50, 200);
  grey(cv::Rect(31, 0, 29, 50)).setTo(204);
  grey.col(30).setTo(202);
  EXPECT_EQ(cv::countNonZero(edgesOf(grey)), 48);
}

namespace {

/// A step between columns 9 and 10 of 20, as high in each row as `height` says.
template <typename Height>
cv::Mat_<float> stepOf(int rows, const Height& height) {
  cv::Mat_<float> image(rows, 20, 100.0F);
  for (int y = 0; y < rows; ++y) {
    const auto h = static_cast<float>(height(y));
    image(cv::Rect(10, y, 10, 1)).setTo(100.0F + h);
    image(y, 9) = 100.0F + h / 2;
  }
  return image;
}

int edgesFrom(const cv::Mat& edges, int row) { return cv::countNonZero(edges.rowRange(row, edges.rows)); }

}  // namespace

TEST(GaussianEdgeCanny, HeightOfALoneStepDoesNotMatter) {
  for (const double height : {1e-3, -1e-3, 1.0, 100.0}) {
    EXPECT_EQ(cv::countNonZero(GaussianEdgeCanny(stepOf(50, [&](int) { return height; }))), 48) << height;
  }
}

TEST(GaussianEdgeCanny, WeakEdgeGoesOnFromAStrongOneUntilTheLowThreshold) {
  // The step's response is 4 to 5 of 20 columns wide, its height falls to nothing: the mean is an eighth of the peak or
  // so (with the slope along the rows), and 1.5 means are met at 14 to 22 % of the height.
  const cv::Mat edges = GaussianEdgeCanny(stepOf(100, [](int y) { return 100.0 - y; }));
  EXPECT_EQ(cv::countNonZero(edges(cv::Rect(8, 1, 4, 75))), 75);
  EXPECT_EQ(edgesFrom(edges, 87), 0);
}

TEST(GaussianEdgeCanny, WeakEdgeByItselfGoes) {
  // A high step fades out, a lower one of height k fades in. At 0.15 it has about 1.8 means, at 0.34 about 3.2.
  const auto twoSteps = [](double k) {
    return stepOf(200, [k](int y) {
      if (y < 50) return 100.0;
      if (y < 75) return 4.0 * (75 - y);
      if (y < 100) return 0.0;
      return y < 125 ? 4.0 * k * (y - 100) : 100.0 * k;
    });
  };
  EXPECT_EQ(edgesFrom(GaussianEdgeCanny(twoSteps(0.15)), 135), 0);
  EXPECT_EQ(edgesFrom(GaussianEdgeCanny(twoSteps(0.34)), 135), 64);
}
