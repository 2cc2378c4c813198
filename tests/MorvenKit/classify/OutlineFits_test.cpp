#include "MorvenKit/src/classify/OutlineFits.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>
#include <stdexcept>

#include "MorvenKit/src/contours/RefineSubPixel.h"

using kestrune::morvenkit::ContourTree;
using kestrune::morvenkit::findContourTree;
using kestrune::morvenkit::OutlineFit;
using kestrune::morvenkit::OutlineFits;

namespace {

cv::Mat twoDiscs() {
  cv::Mat grey(60, 120, CV_8UC1, cv::Scalar(30));
  cv::circle(grey, {30, 30}, 12, 200, cv::FILLED);
  cv::circle(grey, {85, 28}, 16, 200, cv::FILLED);
  cv::GaussianBlur(grey, grey, {5, 5}, 1.0);
  return grey;
}

}  // namespace

TEST(OutlineFits, EachIsThatOfItsOwnOutlineInAnyOrder) {
  const cv::Mat grey = twoDiscs();
  const ContourTree tree = findContourTree(grey > 115);
  ASSERT_EQ(tree.count(), 2);
  OutlineFits fits(tree, grey);
  for (const int index : {1, 0, 1}) {
    const OutlineFit& fit = fits.of(index);
    EXPECT_TRUE(fit.complete);
    EXPECT_NEAR(fit.ellipse.semi_a, cv::boundingRect(tree.points(index)).width / 2.0, 1.0);
    EXPECT_NEAR(fit.ellipse.x, tree.points(index).size() > 80 ? 85.0 : 30.0, 0.5);
    EXPECT_EQ(fit.ellipse.edge_points, kestrune::morvenkit::RefineSubPixel(tree.points(index), grey));
  }
}

TEST(OutlineFits, AFitStaysAsItWasWhenFirstAskedFor) {
  cv::Mat grey = twoDiscs();
  const ContourTree tree = findContourTree(grey > 115);
  OutlineFits fits(tree, grey);
  const OutlineFit* first = &fits.of(0);
  const double x = first->ellipse.x;
  grey.setTo(0);
  EXPECT_EQ(&fits.of(0), first);
  EXPECT_EQ(fits.of(0).ellipse.x, x);
}

TEST(OutlineFits, AnOutlineThatLeavesTheImageIsNotComplete) {
  const cv::Mat grey = twoDiscs();
  const ContourTree tree = findContourTree(grey > 115);
  const cv::Mat part = grey.colRange(0, 90);
  OutlineFits fits(tree, part);
  for (int index = 0; index < tree.count(); ++index) {
    EXPECT_EQ(fits.of(index).complete, tree.points(index).size() < 80) << index;
  }
}

TEST(OutlineFits, OnlyTheTreesOwnOutlinesHaveOne) {
  const cv::Mat grey = twoDiscs();
  const ContourTree tree = findContourTree(grey > 115);
  OutlineFits fits(tree, grey);
  EXPECT_THROW(fits.of(2), std::out_of_range);
  EXPECT_THROW(fits.of(-1), std::out_of_range);
}
