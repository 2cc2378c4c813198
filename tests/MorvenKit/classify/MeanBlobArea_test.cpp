#include "MorvenKit/src/classify/MeanBlobArea.h"

#include <gtest/gtest.h>

#include <cmath>
#include <opencv2/imgproc.hpp>

#include "Drawing.h"
#include "MorvenKit/src/contours/RoundContour.h"
#include "MorvenKit/src/ellipse/EllipseShape.h"

using namespace kestrune::morvenkit;

namespace {

float meanBlobArea(const ContourTree& tree, const cv::Mat& grey, const EllipseDetectorParams& params) {
  OutlineFits fits(tree, grey);
  return MeanBlobArea(tree, fits, params);
}

double areaOf(const Contour& contour) { return cv::contourArea(contour); }

/// Contours that stand side by side in an image of no texture.
ContourTree row(const std::vector<Contour>& contours) {
  ContourTree tree;
  tree.contours = contours;
  for (int i = 0; i < tree.count(); ++i) tree.hierarchy.emplace_back(i + 1 < tree.count() ? i + 1 : -1, i - 1, -1, -1);
  return tree;
}

void makeChild(ContourTree& tree, int parent, int child) {
  tree.hierarchy[static_cast<std::size_t>(parent)][2] = child;
}

Contour ellipseContour(int x, int y, int a, int b) {
  cv::Mat image = cv::Mat::zeros(200, 200, CV_8UC1);
  cv::ellipse(image, {x, y}, {a, b}, 0, 0, 360, 255, cv::FILLED);
  return findContourTree(image).points(0);
}

const cv::Mat kGrey = drawing::sheet(200, 200);
const Contour kSmall = drawing::discContour(30, 30, 8), kLarge = drawing::discContour(100, 100, 20);

}  // namespace

TEST(MeanBlobArea, MeanOfTheAreas) {
  EXPECT_EQ(meanBlobArea(row({kSmall, kLarge}), kGrey, {}), static_cast<float>((areaOf(kSmall) + areaOf(kLarge)) / 2));
  EXPECT_EQ(meanBlobArea(row({kSmall, kSmall, kLarge}), kGrey, {}),
            static_cast<float>((2 * areaOf(kSmall) + areaOf(kLarge)) / 3));
}

TEST(MeanBlobArea, NoBlobIsNotANumber) { EXPECT_TRUE(std::isnan(meanBlobArea({}, kGrey, {}))); }

TEST(MeanBlobArea, LengthsFromThirtyToThreeHundredCount) {
  Contour thirty = kSmall, long300 = kLarge;
  thirty.resize(30);
  while (long300.size() < 300) long300.push_back(kLarge.back());
  EXPECT_EQ(meanBlobArea(row({thirty}), kGrey, {}), static_cast<float>(areaOf(thirty)));
  EXPECT_EQ(meanBlobArea(row({long300}), kGrey, {}), static_cast<float>(areaOf(long300)));
  thirty.resize(29);
  long300.push_back(kLarge.back());
  EXPECT_TRUE(std::isnan(meanBlobArea(row({thirty}), kGrey, {})));
  EXPECT_TRUE(std::isnan(meanBlobArea(row({long300}), kGrey, {})));
}

TEST(MeanBlobArea, OnlyRoundContoursCount) {
  const Contour bar = ellipseContour(100, 100, 40, 6);
  EllipseDetectorParams params;
  params.min_circularity = contourCircularity(kLarge);
  EXPECT_TRUE(std::isnan(meanBlobArea(row({bar, kLarge}), kGrey, params)));
}

TEST(MeanBlobArea, TwiceAsLongAsWideIsNoBlob) {
  // 23 over 12 whole pixels is 1 and passes, 26 over 12 is 2.
  const Contour wide = ellipseContour(100, 100, 23, 12), wider = ellipseContour(100, 100, 26, 12);
  EXPECT_EQ(meanBlobArea(row({wide}), kGrey, {}), static_cast<float>(areaOf(wide)));
  EXPECT_TRUE(std::isnan(meanBlobArea(row({wider}), kGrey, {})));
}

TEST(MeanBlobArea, AxesAreThoseOfTheRefinedOutline) {
  // The pixels of 61 and more around a dark ellipse of 23.9 by 12.3 lie a little outside of it, which makes 24 over 12.
  // Moved to the level of the first of them they lie nearer, and 23 over 12 passes. The area is that of the pixels.
  cv::Mat grey = drawing::sheet(120, 80);
  drawing::fill(grey, {60, 40, 23.9, 12.3}, drawing::kBlack);
  const ContourTree tree = findContourTree(drawing::split(grey, 60));
  const Contour& around = tree.points(tree.firstChild(0));
  ASSERT_EQ(wholeAxisRatio(fitEllipseRobust({around.begin(), around.end()})), 2);
  EXPECT_EQ(meanBlobArea(row({around}), grey, {}), static_cast<float>(areaOf(around)));
}

TEST(MeanBlobArea, AChildStandsForItsParent) {
  // The child is counted by itself as well.
  ContourTree tree = row({kLarge, drawing::discContour(100, 100, 16)});
  makeChild(tree, 0, 1);
  const double inner = areaOf(tree.points(1));
  EXPECT_EQ(meanBlobArea(tree, kGrey, {}), static_cast<float>(inner));
}

TEST(MeanBlobArea, ChildrenOfThirtyOrThreeHundredPointsStandForNobody) {
  Contour child = drawing::discContour(100, 100, 12);
  child.resize(30);
  ContourTree tree = row({kLarge, child});
  makeChild(tree, 0, 1);
  EXPECT_EQ(meanBlobArea(tree, kGrey, {}), static_cast<float>((areaOf(kLarge) + areaOf(child)) / 2));
  const Contour inner = drawing::discContour(100, 100, 16);
  tree.contours[1] = inner;
  while (tree.contours[1].size() < 300) tree.contours[1].push_back(inner.back());
  EXPECT_EQ(meanBlobArea(tree, kGrey, {}), static_cast<float>((areaOf(kLarge) + areaOf(inner)) / 2));
}
