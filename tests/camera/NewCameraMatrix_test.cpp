#include "camera/NewCameraMatrix.h"

#include <gtest/gtest.h>

#include <vector>

#include "Near.h"

namespace {

const cv::Mat kK = (cv::Mat_<double>(3, 3) << 600, 0, 310, 0, 500, 250, 0, 0, 1);
const cv::Size kSize(641, 481);

/// Whatever the points are, their mean is (0.1, 0.2).
void fixedMean(const cv::Mat&, cv::Mat& normalised, const cv::Mat&, const cv::Mat&) {
  normalised = (cv::Mat_<cv::Vec2d>(1, 4) << cv::Vec2d(0.4, 0), cv::Vec2d(0, 0.8), cv::Vec2d(), cv::Vec2d());
}

cv::Mat chosen(const cv::Mat& K, double focal_scale, const cv::Size& new_size = {}, double balance = 0) {
  cv::Mat new_K;
  NewCameraMatrix(K, fixedMean, kSize, cv::Mat(), new_K, balance, new_size, focal_scale);
  return new_K;
}

TEST(NewCameraMatrix, PutsTheMeanOfTheMidEdgesIntoTheMiddle) {
  // a = 1.2, f = 600, m = (0.12, 0.2): c = (320.5 - 72, (481 * 1.2 / 2 - 120) / 1.2) = (248.5, 140.5), fy = 500.
  EXPECT_THAT(chosen(kK, 1.0), MatNear(cv::Matx33d(600, 0, 248.5, 0, 500, 140.5, 0, 0, 1), 1e-10));
}

TEST(NewCameraMatrix, FocalLengthIsTheLargerOneTimesTheScale) {
  const cv::Mat doubled = chosen(kK, 2.0);
  EXPECT_EQ(doubled.at<double>(0, 0), 1200.0);
  EXPECT_NEAR(doubled.at<double>(1, 1), 1000.0, 1e-10);
  const cv::Mat tall = (cv::Mat_<double>(3, 3) << 500, 0, 310, 0, 1000, 250, 0, 0, 1);
  EXPECT_EQ(chosen(tall, 1.0).at<double>(0, 0), 1000.0);
  EXPECT_EQ(chosen(tall, 1.0).at<double>(1, 1), 2000.0);
}

TEST(NewCameraMatrix, OnlyTheXOfTheMeanIsStretched) {
  // a = 0.5, f = 1000, m = (0.05, 0.2): c = (320.5 - 50, (481 / 4 - 200) / 0.5) = (270.5, -159.5).
  const cv::Mat tall = (cv::Mat_<double>(3, 3) << 500, 0, 310, 0, 1000, 250, 0, 0, 1);
  EXPECT_NEAR(chosen(tall, 1.0).at<double>(0, 2), 270.5, 1e-10);
  EXPECT_NEAR(chosen(tall, 1.0).at<double>(1, 2), -159.5, 1e-10);
}

TEST(NewCameraMatrix, BalancePlaysNoPart) { EXPECT_EQ(distanceOf(chosen(kK, 1, {}, 0), chosen(kK, 1, {}, 0.7)), 0.0); }

TEST(NewCameraMatrix, ANewSizeRescalesEachAxis) {
  EXPECT_THAT(chosen(kK, 1.0, {1282, 240}),
              MatNear(cv::Matx33d(1200, 0, 497, 0, 500 * 240 / 481.0, 140.5 * 240 / 481.0, 0, 0, 1), 1e-10));
}

TEST(NewCameraMatrix, OnePixelIsASizeToo) {
  EXPECT_THAT(chosen(kK, 1.0, {1, 1}),
              MatNear(cv::Matx33d(600 / 641.0, 0, 248.5 / 641, 0, 500 / 481.0, 140.5 / 481, 0, 0, 1), 1e-10));
}

TEST(NewCameraMatrix, ANewSizeThatIsNotPositiveInBothAxesIsNone) {
  for (const cv::Size& size : {cv::Size(0, 0), cv::Size(1282, 0), cv::Size(0, 240), cv::Size(-5, 240)}) {
    EXPECT_EQ(distanceOf(chosen(kK, 1.0, size), chosen(kK, 1.0)), 0.0);
  }
}

TEST(NewCameraMatrix, MidEdgesAreWholePixels) {
  std::vector<cv::Vec2d> asked;
  const auto listen = [&asked](const cv::Mat& pixels, cv::Mat& normalised, const cv::Mat& K, const cv::Mat& rotation) {
    ASSERT_EQ(pixels.type(), CV_64FC2);
    asked.assign(pixels.begin<cv::Vec2d>(), pixels.end<cv::Vec2d>());
    EXPECT_THAT(K, MatNear(kK, 0.0));
    EXPECT_THAT(rotation, MatNear(cv::Mat::eye(3, 3, CV_64F) * 7, 0.0));
    fixedMean(pixels, normalised, K, rotation);
  };
  cv::Mat new_K;
  NewCameraMatrix(kK, listen, kSize, cv::Mat::eye(3, 3, CV_64F) * 7, new_K, 0, {}, 1);
  EXPECT_EQ(asked, (std::vector<cv::Vec2d>{{320, 0}, {641, 240}, {320, 481}, {0, 240}}));
}

TEST(NewCameraMatrix, TakesTheTypeOfTheOutputElseOfTheInput) {
  cv::Mat narrow_K;
  kK.convertTo(narrow_K, CV_32F);
  EXPECT_EQ(chosen(narrow_K, 1.0).type(), CV_32FC1);
  cv::Mat wide = cv::Mat::zeros(3, 3, CV_64F);
  NewCameraMatrix(narrow_K, fixedMean, kSize, cv::Mat(), wide, 0, {}, 1);
  EXPECT_EQ(wide.type(), CV_64FC1);
  EXPECT_EQ(wide.at<double>(0, 0), 600.0);
}

}  // namespace
