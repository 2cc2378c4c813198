#include "MorvenKit/src/contours/ContourTree.h"

#include <gtest/gtest.h>

using kestrune::morvenkit::ContourTree;
using kestrune::morvenkit::findContourTree;

TEST(ContourTree, NestedSquares) {
  cv::Mat image = cv::Mat::zeros(40, 40, CV_8UC1);
  image(cv::Rect(2, 2, 30, 30)).setTo(255);
  image(cv::Rect(6, 6, 20, 20)).setTo(0);
  image(cv::Rect(10, 10, 5, 5)).setTo(255);
  const ContourTree tree = findContourTree(image);
  ASSERT_EQ(tree.count(), 3);
  EXPECT_EQ(tree.points(0).size(), 4U * 29U);
  EXPECT_LT(tree.next(0), 0);
  const int hole = tree.firstChild(0);
  ASSERT_TRUE(tree.holds(hole));
  // Pixels of the white around the hole, without its corners.
  EXPECT_EQ(tree.points(hole).size(), 4U * 20U);
  const int inner = tree.firstChild(hole);
  ASSERT_TRUE(tree.holds(inner));
  EXPECT_EQ(tree.points(inner).size(), 16U);
  EXPECT_FALSE(tree.holds(tree.firstChild(inner)));
}

TEST(ContourTree, EveryBorderPixelIsKept) {
  cv::Mat image = cv::Mat::zeros(20, 20, CV_8UC1);
  image(cv::Rect(3, 4, 6, 2)).setTo(1);
  EXPECT_EQ(findContourTree(image).points(0).size(), 12U);
}

TEST(ContourTree, EmptyImageHasNone) {
  const ContourTree tree = findContourTree(cv::Mat());
  EXPECT_EQ(tree.count(), 0);
  EXPECT_FALSE(tree.holds(0));
}

TEST(ContourTree, HoldsOnlyItsIndexes) {
  ContourTree tree;
  tree.contours.resize(2);
  EXPECT_FALSE(tree.holds(-1));
  EXPECT_TRUE(tree.holds(1));
  EXPECT_FALSE(tree.holds(2));
}
