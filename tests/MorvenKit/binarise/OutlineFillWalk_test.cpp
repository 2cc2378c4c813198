#include "MorvenKit/src/binarise/OutlineFillWalk.h"

#include <gtest/gtest.h>

#include "Drawing.h"

using namespace kestrune::morvenkit;

namespace {

Contour rounded(double x, double y, double r, int count = 60) {
  Contour contour;
  for (const auto& p : drawing::Outline{x, y, r, r}.points(count)) contour.emplace_back(cvRound(p.x), cvRound(p.y));
  return contour;
}

/// A tree from its contours and each one's parent; siblings in the order of the list.
ContourTree treeOf(const std::vector<Contour>& contours, const std::vector<int>& parents) {
  ContourTree tree;
  tree.contours = contours;
  tree.hierarchy.assign(contours.size(), cv::Vec4i::all(-1));
  for (std::size_t i = 0; i < parents.size(); ++i) {
    tree.hierarchy[i][3] = parents[i];
    for (std::size_t j = i + 1; j < parents.size(); ++j) {
      if (parents[j] == parents[i]) {
        tree.hierarchy[i][0] = static_cast<int>(j);
        break;
      }
    }
    if (parents[i] >= 0 && tree.hierarchy[static_cast<std::size_t>(parents[i])][2] < 0) {
      tree.hierarchy[static_cast<std::size_t>(parents[i])][2] = static_cast<int>(i);
    }
  }
  return tree;
}

cv::Mat run(const ContourTree& tree) {
  cv::Mat edges(200, 300, CV_8UC1, cv::Scalar(9));
  OutlineFillWalk(tree, {}, edges);
  return edges;
}

double filled(const cv::Mat& image) {
  EXPECT_EQ(cv::countNonZero(image), cv::countNonZero(image == 255));
  return cv::countNonZero(image);
}

}  // namespace

TEST(OutlineFillWalk, AMarkerIsFilled) {
  const cv::Mat image = run(treeOf({rounded(100, 100, 20)}, {-1}));
  EXPECT_NEAR(filled(image), CV_PI * 20.5 * 20.5, 40);
  EXPECT_EQ(image.at<uchar>(100, 100), 255);
  EXPECT_EQ(image.at<uchar>(60, 100), 0);
}

TEST(OutlineFillWalk, WithoutAMarkerTheEdgesStay) {
  EXPECT_EQ(cv::countNonZero(run(treeOf({rounded(100, 100, 20, 30)}, {-1})) == 9), 200 * 300);
  EXPECT_EQ(cv::countNonZero(run({}) == 9), 200 * 300);
}

TEST(OutlineFillWalk, ThirtyOneToFiveHundredNinetyNinePoints) {
  EllipseDetectorParams params;
  params.max_radius = 100;
  for (const auto& [count, taken] :
       std::vector<std::pair<int, bool>>{{30, false}, {31, true}, {599, true}, {600, false}}) {
    cv::Mat edges(200, 300, CV_8UC1, cv::Scalar(9));
    OutlineFillWalk(treeOf({rounded(100, 100, 60, count)}, {-1}), params, edges);
    EXPECT_EQ(edges.at<uchar>(0, 0) == 0, taken) << count;
  }
}

TEST(OutlineFillWalk, TheInnermostOutlineIsFilled) {
  const auto nest = treeOf({rounded(100, 100, 40), rounded(100, 100, 35), rounded(100, 100, 20), rounded(100, 100, 15)},
                           {-1, 0, 1, 2});
  EXPECT_NEAR(filled(run(nest)), CV_PI * 15.5 * 15.5, 40);
}

TEST(OutlineFillWalk, AChildOfThirtyPointsLeavesTheOutlineItself) {
  EXPECT_NEAR(filled(run(treeOf({rounded(100, 100, 40, 90), rounded(100, 100, 20, 30)}, {-1, 0}))), CV_PI * 40.5 * 40.5,
              80);
  EXPECT_NEAR(filled(run(treeOf({rounded(100, 100, 40, 90), rounded(100, 100, 20, 31)}, {-1, 0}))), CV_PI * 20.5 * 20.5,
              80);
}

TEST(OutlineFillWalk, AnInnermostOneThatIsNoMarkerLeavesTheChild) {
  const auto nest = treeOf({rounded(100, 100, 40), rounded(100, 100, 30), rounded(100, 100, 6, 20)}, {-1, 0, 1});
  EXPECT_NEAR(filled(run(nest)), CV_PI * 30.5 * 30.5, 60);
}

TEST(OutlineFillWalk, SiblingsShareASheet) {
  const cv::Mat image = run(treeOf({rounded(60, 100, 20), rounded(160, 100, 20)}, {-1, -1}));
  EXPECT_EQ(image.at<uchar>(100, 60), 255);
  EXPECT_EQ(image.at<uchar>(100, 160), 255);
}

TEST(OutlineFillWalk, EachLevelHasItsOwnSheetAndTheLastDrawnIsTheResult) {
  // In the order of the walk: a marker, a frame with a marker in it, and perhaps another marker.
  const Contour frame = rounded(160, 100, 30, 20);
  cv::Mat image = run(treeOf({rounded(60, 100, 20), frame, rounded(160, 100, 10)}, {-1, -1, 1}));
  EXPECT_EQ(image.at<uchar>(100, 60), 0);
  EXPECT_EQ(image.at<uchar>(100, 160), 255);
  image = run(treeOf({rounded(60, 100, 20), frame, rounded(160, 100, 10), rounded(250, 100, 20)}, {-1, -1, 1, -1}));
  EXPECT_EQ(image.at<uchar>(100, 60), 255);
  EXPECT_EQ(image.at<uchar>(100, 160), 0);
  EXPECT_EQ(image.at<uchar>(100, 250), 255);
}

TEST(OutlineFillWalkInnermost, FollowsFirstChildren) {
  const auto tree = treeOf(
      {rounded(100, 100, 60, 90), rounded(100, 100, 50), rounded(80, 100, 12), rounded(120, 100, 12)}, {-1, 0, 1, 1});
  EXPECT_EQ(InnermostContour(tree, 0, {}), 2);
  EXPECT_EQ(InnermostContour(tree, 1, {}), 2);
  EXPECT_EQ(InnermostContour(tree, 3, {}), 3);
}

TEST(OutlineFillWalkInnermost, OnlyTheInnermostIsTested) {
  auto tree = treeOf({rounded(100, 100, 60, 20), rounded(100, 100, 50, 31)}, {-1, 0});
  EXPECT_EQ(InnermostContour(tree, 0, {}), 1);
  tree.contours[1].pop_back();
  EXPECT_EQ(InnermostContour(tree, 0, {}), std::nullopt);
  tree.contours[1] = Contour(50, cv::Point(3, 3));
  EXPECT_EQ(InnermostContour(tree, 0, {}), std::nullopt);
}
