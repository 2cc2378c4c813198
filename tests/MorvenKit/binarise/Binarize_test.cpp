#include "MorvenKit/src/binarise/Binarize.h"

#include <gtest/gtest.h>

#include "Drawing.h"
#include "MorvenKit/src/binarise/LocalThreshold.h"
#include "MorvenKit/src/binarise/OutlineFill.h"
#include "MorvenKit/src/binarise/OutlineThreshold.h"

using namespace kestrune::morvenkit;

namespace {

cv::Mat picture() {
  cv::Mat grey = drawing::sheet(260, 220);
  drawing::dot(grey, 80.2, 90.3, 14);
  drawing::dot(grey, 180.2, 130.3, 14);
  return grey;
}

cv::Mat by(int method) {
  EllipseDetectorParams params;
  params.bin_method = method;
  return Binarize(picture(), params);
}

}  // namespace

TEST(Binarize, MethodIsChosenByItsNumber) {
  const cv::Mat grey = picture();
  EXPECT_EQ(cv::countNonZero(by(0) != LocalThreshold(grey, {})), 0);
  EXPECT_EQ(cv::countNonZero(by(1) != OutlineThreshold(grey, {})), 0);
  EXPECT_EQ(cv::countNonZero(by(2) != OutlineFill(grey, {})), 0);
  EXPECT_GT(cv::countNonZero(by(0) != by(1)), 0);
  EXPECT_GT(cv::countNonZero(by(1) != by(2)), 0);
}

TEST(Binarize, OtherNumbersGiveNothing) {
  EXPECT_TRUE(by(3).empty());
  EXPECT_TRUE(by(-1).empty());
}
