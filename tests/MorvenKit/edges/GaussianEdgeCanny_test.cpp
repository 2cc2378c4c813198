#include "MorvenKit/src/edges/GaussianEdgeCanny.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

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

namespace {

using Kernel = std::array<double, 13>;

/// A Gaussian of sigma sqrt(2) from -6 to 6, of sum 1.
Kernel gaussian() {
  Kernel g;
  double sum = 0;
  for (int i = -6; i <= 6; ++i) sum += g.at(static_cast<std::size_t>(i + 6)) = std::exp(-i * i / 4.0);
  for (double& value : g) value /= sum;
  return g;
}

/// The gradient of the Gaussian, one-sided at its ends. Its rising half has the sum 1, and its falling half, as it is
/// odd, the sum -1.
Kernel derivative(const Kernel& g) {
  Kernel d{};
  double rising = d[0] = g[1] - g[0];
  for (std::size_t i = 1; i < 6; ++i) rising += d.at(i) = (g.at(i + 1) - g.at(i - 1)) / 2;
  for (std::size_t i = 0; i < 6; ++i) {
    d.at(i) /= rising;
    d.at(12 - i) = -d.at(i);
  }
  return d;
}

/// Sums along one direction, where the outermost pixels go on outside.
cv::Mat_<double> convolved(const cv::Mat_<double>& image, const Kernel& kernel, const cv::Point& along) {
  cv::Mat_<double> result(image.size(), 0.0);
  for (int y = 0; y < image.rows; ++y) {
    for (int x = 0; x < image.cols; ++x) {
      for (int k = -6; k <= 6; ++k) {
        const int column = std::clamp(x - k * along.x, 0, image.cols - 1);
        const int row = std::clamp(y - k * along.y, 0, image.rows - 1);
        result(y, x) += kernel.at(static_cast<std::size_t>(k + 6)) * image(row, column);
      }
    }
  }
  return result;
}

/// The method in double precision and by other means.
struct StepByStep {
  explicit StepByStep(const cv::Mat_<double>& image) {
    const Kernel g = gaussian(), d = derivative(g);
    const cv::Point right(1, 0), down(0, 1);
    ix = convolved(convolved(image, g, down), d, right);
    iy = convolved(convolved(image, g, right), d, down);
    cv::magnitude(ix, iy, length);
  }

  /// By what the length here exceeds that on the gradient's line, where it crosses the square of the neighbours, to one
  /// side.
  double lead(int y, int x, int side) const {
    const double gx = ix(y, x), gy = iy(y, x);
    const int right = gx < 0 ? -side : side, down = gy < 0 ? -side : side;
    const bool flat = std::abs(gx) > std::abs(gy);
    const double straight = flat ? length(y, x + right) : length(y + down, x);
    const double t = flat ? std::abs(gy / gx) : std::abs(gx / gy);
    return length(y, x) - (t * length(y + down, x + right) + (1 - t) * straight);
  }

  /// Ridges above 1.5 means, of which each piece has a pixel above 2.5 means.
  cv::Mat edges() const {
    const double mean = cv::mean(length)[0];
    cv::Mat_<uchar> weak(length.size(), uchar{0});
    for (int y = 1; y < length.rows - 1; ++y) {
      for (int x = 1; x < length.cols - 1; ++x) {
        weak(y, x) = length(y, x) > 1.5 * mean && lead(y, x, 1) >= 0 && lead(y, x, -1) >= 0 ? 255 : 0;
      }
    }
    cv::Mat pieces;
    cv::Mat kept = cv::Mat::zeros(weak.size(), CV_8UC1);
    const int count = cv::connectedComponents(weak, pieces, 8);
    for (int piece = 1; piece < count; ++piece) {
      if (cv::countNonZero((pieces == piece) & (length > 2.5 * mean)) > 0) kept |= pieces == piece;
    }
    return kept;
  }

  cv::Mat_<double> ix, iy, length;
};

}  // namespace

// Dots of less and less contrast, some across the picture's edge, and below them wide ones: the high threshold leaves
// out whole outlines, the low one cuts those that it keeps.
TEST(GaussianEdgeCanny, ChainOfSteps) {
  cv::Mat grey = drawing::sheet(300, 280);
  for (int i = 0; i < 70; ++i) {
    const int column = i % 10, row = i / 10;
    drawing::fill(grey, {5.3 + 30.7 * column + 4.3 * row, 9.8 + 29.9 * row, 11.3, 9.6, 0.4 * i}, 30);
  }
  for (int i = 0; i < 4; ++i) drawing::fill(grey, {80.3 + 55.2 * i, 240.8, 24.6, 31.3, 0.5 * i}, 30);
  drawing::wear(grey, 0.15, 1.0, 3.0);
  EXPECT_EQ(cv::countNonZero(edgesOf(grey) != StepByStep(grey).edges()), 0);
}
