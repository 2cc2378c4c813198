#include "MorvenKit/src/binarise/OutlineLocalThreshold.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

Contour rounded(const drawing::Outline& outline, int count) {
  Contour contour;
  for (const auto& p : outline.points(count)) contour.emplace_back(cvRound(p.x), cvRound(p.y));
  return contour;
}

ContourTree lone(const Contour& contour) {
  ContourTree tree;
  tree.contours = {contour};
  tree.hierarchy = {{-1, -1, -1, -1}};
  return tree;
}

cv::Mat run(const ContourTree& tree, const cv::Mat& grey, const EllipseDetectorParams& params = {}) {
  cv::Mat canvas(grey.size(), CV_8UC1, cv::Scalar(7));
  OutlineLocalThreshold(grey, tree, params, canvas);
  return canvas;
}

/// Smallest rectangle of all pixels that are no longer the canvas' own.
cv::Rect changed(const cv::Mat& canvas) { return cv::boundingRect(cv::Mat(canvas != 7)); }

const drawing::Outline kDisc{100, 80, 10.3, 10.3};

cv::Mat discPicture() {
  cv::Mat grey = drawing::sheet(200, 160);
  drawing::fill(grey, kDisc, drawing::kBlack);
  return grey;
}

}  // namespace

TEST(OutlineLocalThreshold, RectangleOfTwiceTheAxesIsThresholdedAndInverted) {
  const cv::Mat grey = discPicture();
  Contour contour = rounded(kDisc, 64);
  const cv::Mat canvas = run(lone(contour), grey);
  // Refined to the level of its first point, the outline stays within a pixel of 10.3; twice that reaches 19 to 22
  // pixels.
  const cv::Rect area = changed(canvas);
  EXPECT_NEAR(area.x, 79.5, 2);
  EXPECT_NEAR(area.br().x, 121.5, 2);
  EXPECT_NEAR(area.y, 59.5, 2);
  EXPECT_NEAR(area.br().y, 101.5, 2);
  EXPECT_EQ(cv::countNonZero(canvas(area) == 255) + cv::countNonZero(canvas(area) == 0), area.area());
  EXPECT_EQ(canvas.at<uchar>(80, 100), 255);
  EXPECT_EQ(canvas.at<uchar>(area.y, area.x), 0);
  EXPECT_NEAR(cv::countNonZero(canvas == 255), CV_PI * 10.3 * 10.3, 12);
}

TEST(OutlineLocalThreshold, RectangleEndsAreCutAndIncluded) {
  // On a picture without texture the points stay on pixels and the fit is that of the outline: x 99.95 to 100.05,
  // a 10.2 to 10.5. int(100 - 20.6) = 79 and int(100 + 20.6) = 120, both included. Otsu finds no threshold: all white,
  // inverted black.
  const cv::Mat canvas = run(lone(rounded(kDisc, 64)), drawing::sheet(200, 160));
  EXPECT_EQ(changed(canvas), cv::Rect(cv::Point(79, 59), cv::Point(121, 101)));
  EXPECT_EQ(cv::countNonZero(canvas == 0), 42 * 42);
}

TEST(OutlineLocalThreshold, RectangleIsCutAtTheImage) {
  const auto at = [](double x, double y) {
    return changed(run(lone(rounded({x, y, 10.3, 10.3}, 64)), drawing::sheet(200, 160)));
  };
  EXPECT_EQ(at(11, 80).x, 0);
  EXPECT_EQ(at(188, 80).br().x, 200);
  EXPECT_EQ(at(100, 11).y, 0);
  EXPECT_EQ(at(100, 148).br().y, 160);
}

TEST(OutlineLocalThreshold, ThirtyOneToFiveHundredNinetyNinePoints) {
  EllipseDetectorParams params;
  params.max_radius = 100;
  const cv::Mat grey = drawing::sheet(400, 400);
  const auto isTaken = [&](int count) {
    return !changed(run(lone(rounded({200, 200, 60, 60}, count)), grey, params)).empty();
  };
  EXPECT_FALSE(isTaken(30));
  EXPECT_TRUE(isTaken(31));
  EXPECT_TRUE(isTaken(599));
  EXPECT_FALSE(isTaken(600));
}

TEST(OutlineLocalThreshold, LongEllipsesAreLeft) {
  // Whole pixels: 23 over 12 is 1, 25 over 12 is 2.
  const cv::Mat grey = drawing::sheet(200, 160);
  EXPECT_FALSE(changed(run(lone(rounded({100, 80, 23.4, 12.5}, 80)), grey)).empty());
  EXPECT_TRUE(changed(run(lone(rounded({100, 80, 25.4, 12.5}, 80)), grey)).empty());
}

TEST(OutlineLocalThreshold, EllipseBelowOnePixelIsSkipped) {
  // 40 points in a square of one pixel.
  Contour tiny;
  for (int i = 0; i < 10; ++i) tiny.insert(tiny.end(), {{50, 50}, {51, 50}, {51, 51}, {50, 51}});
  EllipseDetectorParams params;
  params.min_circularity = -1;
  EXPECT_TRUE(changed(run(lone(tiny), drawing::sheet(200, 160), params)).empty());
}

TEST(OutlineLocalThreshold, OutlineBeyondTheImageIsLeft) {
  Contour contour = rounded(kDisc, 64);
  contour[9].y = -4;
  EXPECT_TRUE(changed(run(lone(contour), drawing::sheet(200, 160))).empty());
}

TEST(OutlineLocalThreshold, OnlyWhatIsNoMarkerGivesWayToItsChildren) {
  ContourTree tree;
  tree.contours = {rounded({100, 80, 60, 60}, 30), rounded({60, 80, 8, 8}, 40), rounded({140, 80, 8, 8}, 40),
                   rounded({140, 80, 5, 5}, 34)};
  tree.hierarchy = {{-1, -1, 1, -1}, {2, -1, -1, 0}, {-1, 1, 3, 0}, {-1, -1, -1, 2}};
  const cv::Mat grey = drawing::sheet(200, 160);
  const cv::Mat canvas = run(tree, grey);
  EXPECT_EQ(canvas.at<uchar>(80, 60), 0);
  EXPECT_EQ(canvas.at<uchar>(80, 140), 0);
  EXPECT_EQ(canvas.at<uchar>(80, 100), 7);
  // As a marker the outer one would hide both.
  tree.contours[0] = rounded({100, 80, 30, 30}, 60);
  tree.contours[1] = rounded({10, 10, 4, 4}, 40);
  EXPECT_EQ(run(tree, grey).at<uchar>(10, 10), 7);
}

TEST(OutlineLocalThreshold, EmptyTreeLeavesTheCanvas) { EXPECT_TRUE(changed(run({}, drawing::sheet(50, 50))).empty()); }
