#include "camera/RectifyPair.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>
#include <sstream>

#include "Near.h"
#include "StereoFixture.h"
#include "camera/KeptMaps.h"
#include "camera/RectificationMaps.h"
#include "support/ConsoleCapture.h"

namespace {

const stereo::Cameras& cameras() {
  static const stereo::Cameras kCameras;
  return kCameras;
}

/// A smooth picture without symmetry, brightest 230.
cv::Mat smoothImage(const cv::Size& size, double phase) {
  cv::Mat image(size, CV_8UC1);
  for (int row = 0; row < size.height; ++row) {
    for (int column = 0; column < size.width; ++column) {
      image.at<uchar>(row, column) = cv::saturate_cast<uchar>(
          100 + 0.2 * column + 0.1 * row + 40 * std::sin(0.05 * column + phase) * std::cos(0.07 * row));
    }
  }
  return image;
}

struct Result {
  cv::Mat Q;
  std::optional<RectifiedPair> pair;
  std::string printed;
};

void run(Result& result, const RectificationSettings& settings, std::optional<LensModel> model,
         const cv::Mat& left_image, const cv::Mat& right_image) {
  const ConsoleCapture console;
  KeptMaps maps;
  result.pair = RectifyPair(settings, stereo::matrices(model), left_image, right_image, model, maps, result.Q);
  result.printed = console.out();
}

Result resultOf(std::optional<LensModel> model, float f_scale, std::int32_t x_y, const cv::Mat& left_image,
                const cv::Mat& right_image) {
  Result result;
  run(result, cameras().settings(f_scale, x_y), model, left_image, right_image);
  return result;
}

Result resultOf(std::optional<LensModel> model, float f_scale = 1.0F, std::int32_t x_y = 0) {
  return resultOf(model, f_scale, x_y, smoothImage(stereo::kSize, 0), smoothImage(stereo::kSize, 1));
}

cv::Mat inColour(const cv::Mat& grey) {
  cv::Mat colour;
  cv::cvtColor(grey, colour, cv::COLOR_GRAY2BGR);
  return colour;
}

bool areEqual(const cv::Mat& a, const cv::Mat& b) {
  return a.size() == b.size() && a.type() == b.type() && cv::norm(a, b, cv::NORM_INF) == 0.0;
}

class RectifyPairEachModel : public testing::TestWithParam<LensModel> {};

TEST_P(RectifyPairEachModel, WarpsBothImagesByTheirMapsWithZerosOutside) {
  const Result result = resultOf(GetParam(), 0.5F);
  const RectificationMaps maps =
      rectificationMaps(cameras().settings(0.5F), stereo::matrices(GetParam()), stereo::kSize, GetParam());
  const auto warped = [](const cv::Mat& image, const WarpMaps& by) {
    cv::Mat output;
    cv::remap(image, output, by.columns, by.rows, 1, 0, cv::Scalar(0));
    return inColour(output);
  };
  EXPECT_TRUE(areEqual(result.pair->left, warped(smoothImage(stereo::kSize, 0), maps.left)));
  EXPECT_TRUE(areEqual(result.pair->right, warped(smoothImage(stereo::kSize, 1), maps.right)));
  EXPECT_EQ(result.pair->left.at<cv::Vec3b>(0, 0), cv::Vec3b(0, 0, 0)) << "half the focal length leaves a black margin";
  EXPECT_EQ(distanceOf(result.Q, maps.Q), 0.0);
}

INSTANTIATE_TEST_SUITE_P(Models, RectifyPairEachModel,
                         testing::Values(LensModel::kBrownFive, LensModel::kBrownEight, LensModel::kFisheye,
                                         LensModel::kPoly));

TEST(RectifyPair, CanvasHoldsBothImagesBelowItsLines) {
  const Result result = resultOf(LensModel::kBrownFive);
  const cv::Mat canvas = result.pair->canvas();
  ASSERT_EQ(canvas.size(), cv::Size(640, 240));
  for (int row = 0; row < canvas.rows; ++row) {
    if (row % 32 == 0) {
      EXPECT_TRUE(areEqual(canvas.row(row), cv::Mat(1, 640, CV_8UC3, cv::Scalar(0, 255, 0))));
    } else {
      EXPECT_TRUE(areEqual(canvas.row(row).colRange(0, 320), result.pair->left.row(row)));
      EXPECT_TRUE(areEqual(canvas.row(row).colRange(320, 640), result.pair->right.row(row)));
    }
  }
}

TEST(RectifyPair, ATurnedPairOf1920Times1200HasACanvasOf1920RowsAnd2400Columns) {
  const cv::Mat image(1200, 1920, CV_8UC1, cv::Scalar(90));
  const Result result = resultOf(std::nullopt, 1.0F, 1, image, image);
  ASSERT_TRUE(result.pair);
  const cv::Mat canvas = result.pair->canvas();
  ASSERT_EQ(canvas.size(), cv::Size(2400, 1920));
  EXPECT_EQ(result.pair->left.size(), cv::Size(1200, 1920));
  for (int row = 0; row < 1920; ++row) {
    const cv::Scalar colour = row % 32 == 0 ? cv::Scalar(0, 255, 0) : cv::Scalar(90, 90, 90);
    EXPECT_TRUE(areEqual(canvas.row(row), cv::Mat(1, 2400, CV_8UC3, colour))) << row;
  }
}

TEST(RectifyPair, AQuarterTurnIsClockwiseOnBothOutputs) {
  const Result upright = resultOf(LensModel::kBrownFive, 1.0F, 0);
  const Result turned = resultOf(LensModel::kBrownFive, 1.0F, 1);
  ASSERT_EQ(turned.pair->left.size(), cv::Size(240, 320));
  for (int row = 0; row < 240; ++row) {
    for (int column = 0; column < 320; ++column) {
      // The top row becomes the right column.
      ASSERT_EQ(turned.pair->left.at<cv::Vec3b>(column, 239 - row), upright.pair->left.at<cv::Vec3b>(row, column));
      ASSERT_EQ(turned.pair->right.at<cv::Vec3b>(column, 239 - row), upright.pair->right.at<cv::Vec3b>(row, column));
    }
  }
}

TEST(RectifyPair, ATurnedSquareImageLeavesTheInputAsItWas) {
  const cv::Mat image = inColour(smoothImage({64, 64}, 0));
  const cv::Mat before = image.clone();
  resultOf(std::nullopt, 1.0F, 1, image, image);
  EXPECT_TRUE(areEqual(image, before));
}

TEST(RectifyPair, AnyOtherTurnGivesNoPairAndStillPrints) {
  for (const std::int32_t x_y : {2, -1}) {
    const Result result = resultOf(LensModel::kBrownFive, 1.0F, x_y);
    EXPECT_FALSE(result.pair);
    EXPECT_NE(result.printed, "");
  }
}

class RectifyPairInputTypes : public testing::TestWithParam<int> {};

TEST_P(RectifyPairInputTypes, BecomeEightBitColour) {
  cv::Mat image;
  smoothImage(stereo::kSize, 0).convertTo(image, CV_MAT_DEPTH(GetParam()));
  if (CV_MAT_CN(GetParam()) == 3) image = inColour(image);
  if (CV_MAT_CN(GetParam()) == 4) cv::cvtColor(image, image, cv::COLOR_GRAY2BGRA);
  const Result result = resultOf(LensModel::kBrownEight, 0.9F, 0, image, image);
  ASSERT_TRUE(result.pair);
  for (const cv::Mat& picture : {result.pair->left, result.pair->right, result.pair->canvas()})
    EXPECT_EQ(picture.type(), CV_8UC3);
}

INSTANTIATE_TEST_SUITE_P(Types, RectifyPairInputTypes, testing::Values(CV_8UC1, CV_8UC3, CV_8UC4, CV_16UC1));

TEST(RectifyPair, AConstantSixteenBitImageIsBlack) {
  // Unwarped, as a warp would bring in a margin.
  const cv::Mat image(240, 320, CV_16UC1, cv::Scalar(1234));
  const Result result = resultOf(std::nullopt, 1.0F, 0, image, image);
  EXPECT_TRUE(areEqual(result.pair->left, cv::Mat::zeros(240, 320, CV_8UC3)));
}

TEST(RectifyPair, FloatImagesDoNotFitTheCanvas) {
  const cv::Mat image(240, 320, CV_32FC1, cv::Scalar(1));
  EXPECT_THROW(resultOf(LensModel::kBrownFive, 1.0F, 0, image, image), cv::Exception);
}

TEST(RectifyPairNoRectification, ImagesPassUnwarpedAndNothingIsPrinted) {
  const cv::Mat left = smoothImage(stereo::kSize, 0);
  const cv::Mat right = smoothImage(stereo::kSize, 1);
  const Result result = resultOf(std::nullopt, 1.0F, 0, left, right);
  EXPECT_TRUE(areEqual(result.pair->left, inColour(left)));
  EXPECT_TRUE(areEqual(result.pair->right, inColour(right)));
  EXPECT_TRUE(result.Q.empty());
  EXPECT_EQ(result.printed, "");
}

TEST(RectifyPairNoRectification, OldQStaysAndIsPrinted) {
  Result result;
  result.Q = (cv::Mat_<double>(4, 4) << 1, 0, 0, -11, 0, 1, 0, -22.5, 0, 0, 0, 33, 0, 0, 1, 0);
  run(result, cameras().settings(1.0F), std::nullopt, smoothImage(stereo::kSize, 0), smoothImage(stereo::kSize, 1));
  EXPECT_EQ(result.Q.at<double>(1, 3), -22.5);
  EXPECT_EQ(result.printed, " Virtual camera cx: 11\n Virtual camera cy: 22.5\n Virtual camera f: 33\n");
}

TEST(RectifyPair, PrintsTheVirtualCameraOfQ) {
  const Result result = resultOf(LensModel::kPoly, 0.9F);
  std::ostringstream expected;
  expected << " Virtual camera cx: " << -result.Q.at<double>(0, 3)
           << "\n Virtual camera cy: " << -result.Q.at<double>(1, 3)
           << "\n Virtual camera f: " << result.Q.at<double>(2, 3) << "\n";
  EXPECT_EQ(result.printed, expected.str());
  EXPECT_GT(-result.Q.at<double>(0, 3), 0.0);
}

TEST(RectifyPair, TheNextPairLeavesThePicturesOfTheLastOneAlone) {
  Result result;
  const cv::Mat first = inColour(smoothImage(stereo::kSize, 0));
  run(result, cameras().settings(1.0F), LensModel::kBrownFive, first, first);
  const cv::Mat kept = result.pair->left;
  const cv::Mat before = kept.clone();
  const cv::Mat second = inColour(smoothImage(stereo::kSize, 2));
  run(result, cameras().settings(1.0F), LensModel::kBrownFive, second, second);
  EXPECT_TRUE(areEqual(kept, before));
  EXPECT_FALSE(areEqual(result.pair->left, before));
}

TEST(RectifyPair, ImagesThatBecomeNoColourThrow) {
  const cv::Mat floats = cv::Mat::zeros(8, 8, CV_32FC1);
  for (const std::int32_t x_y : {0, 1}) EXPECT_THROW(resultOf(std::nullopt, 1.0F, x_y, floats, floats), cv::Exception);
  EXPECT_NO_THROW(resultOf(std::nullopt, 1.0F, 2, floats, floats)) << "no layout is asked for";
}

TEST(RectifyPair, ImagesOfDifferentSizeThrow) {
  EXPECT_THROW(resultOf(std::nullopt, 1.0F, 0, smoothImage({64, 48}, 0), smoothImage({64, 50}, 0)), cv::Exception);
}

}  // namespace
