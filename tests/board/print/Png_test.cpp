#include "board/print/Png.h"

#include <gtest/gtest.h>

#include <limits>
#include <opencv2/core.hpp>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <string>
#include <vector>

#include "RefusedWith.h"

namespace {

boards::Sheet ringSheet() {
  boards::Sheet sheet;
  sheet.width = 100.0;
  sheet.height = 80.0;
  sheet.discs = {{40.0, 30.0, 20.0, true}, {40.0, 30.0, 10.0, false}, {40.0, 30.0, 5.0, true}};
  return sheet;
}

cv::Mat decoded(const std::string& png) {
  return cv::imdecode(std::vector<uchar>(png.begin(), png.end()), cv::IMREAD_UNCHANGED);
}

TEST(Png, IsGreyAndInTrueSizeAtItsDensity) {
  const cv::Mat picture = decoded(boards::pngOf(ringSheet(), 254.0, 5.0));  // Ten pixels to the millimetre.
  ASSERT_EQ(picture.type(), CV_8UC1);
  ASSERT_EQ(picture.size(), cv::Size(1000, 800));
  EXPECT_EQ(picture.at<uchar>(0, 0), 255);
  EXPECT_EQ(picture.at<uchar>(300, 400), 0);
  EXPECT_EQ(picture.at<uchar>(300, 475), 255);
  EXPECT_EQ(picture.at<uchar>(300, 550), 0);
  const cv::Mat ink = 255 - picture;
  EXPECT_NEAR(cv::sum(ink)[0] / 255.0 / 100.0, CV_PI * (400.0 - 100.0 + 25.0), 1.0);
  const cv::Moments moments = cv::moments(ink);
  EXPECT_NEAR(moments.m10 / moments.m00, 399.5, 0.02);
  EXPECT_NEAR(moments.m01 / moments.m00, 299.5, 0.02);
}

TEST(Png, RefusesTooFewAndTooManyPixels) {
  // 5 mm are 2 pixels at 10.2 dots per inch; 32767 pixels are 100 mm at 8322.8, 5e8 are 8000 square millimetres at
  // 6350.
  expectRefused([] { boards::pngOf(ringSheet(), 10.0, 5.0); }, "found 10, wanted 11 to 6350 for this board");
  expectRefused([] { boards::pngOf(ringSheet(), 6351.0, 5.0); }, "found 6351");
  expectRefused([] { boards::pngOf(ringSheet(), -300.0, 5.0); }, "found -300");
  expectRefused([] { boards::pngOf(ringSheet(), std::numeric_limits<double>::quiet_NaN(), 5.0); }, "found nan");
  EXPECT_NO_THROW(boards::pngOf(ringSheet(), 11.0, 5.0));
}

}  // namespace
