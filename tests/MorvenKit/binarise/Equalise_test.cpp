#include "MorvenKit/src/binarise/Equalise.h"

#include <gtest/gtest.h>

#include <opencv2/imgproc.hpp>
#include <string>

using kestrune::morvenkit::equalise;

namespace {

struct EqualisedPicture {
  const char* name;
  cv::Size size, grid;
};

cv::Mat even(const cv::Size& size) { return {size, CV_8UC1, cv::Scalar(77)}; }

cv::Mat noisy(const cv::Size& size) {
  cv::Mat image(size, CV_8UC1);
  cv::RNG(11).fill(image, cv::RNG::NORMAL, 120, 20);
  return image;
}

cv::Mat allGreys(const cv::Size& size) {
  cv::Mat image(size, CV_8UC1);
  cv::RNG(12).fill(image, cv::RNG::UNIFORM, 0, 256);
  return image;
}

cv::Mat shaded(const cv::Size& size) {
  cv::Mat image = allGreys(size);
  cv::GaussianBlur(image, image, {31, 31}, 9);
  cv::normalize(image, image, 0, 255, cv::NORM_MINMAX);
  return image;
}

}  // namespace

class EqualiseSizes : public testing::TestWithParam<EqualisedPicture> {};

TEST_P(EqualiseSizes, GivesWhatTheLibraryGivesToTheBit) {
  const auto& [name, size, grid] = GetParam();
  for (const auto& draw : {even, noisy, allGreys, shaded}) {
    const cv::Mat image = draw(size);
    cv::Mat expected;
    cv::createCLAHE(1.0, grid)->apply(image, expected);
    // As a part of a wider picture: its rows do not follow one another.
    cv::Mat wider(size + cv::Size(5, 3), CV_8UC1, cv::Scalar(9));
    cv::Mat part = wider(cv::Rect(cv::Point(2, 1), size));
    image.copyTo(part);
    equalise(part, grid);
    EXPECT_EQ(cv::countNonZero(part != expected), 0);
    part.setTo(9);
    EXPECT_EQ(cv::countNonZero(wider != 9), 0) << "what is around it is touched";
  }
}

INSTANTIATE_TEST_SUITE_P(Pictures, EqualiseSizes,
                         testing::Values(EqualisedPicture{"WholeTiles", {400, 300}, {4, 3}},
                                         EqualisedPicture{"OnlyTheWidthIsWhole", {400, 311}, {4, 3}},
                                         EqualisedPicture{"OnlyTheHeightIsWhole", {417, 300}, {4, 3}},
                                         EqualisedPicture{"NeitherIsWhole", {417, 311}, {4, 3}},
                                         EqualisedPicture{"OneTile", {131, 127}, {1, 1}},
                                         EqualisedPicture{"OneRowOfTiles", {733, 150}, {7, 1}},
                                         EqualisedPicture{"OneColumnOfTiles", {150, 733}, {1, 7}},
                                         EqualisedPicture{"AsAHalvedPicture", {1224, 1024}, {12, 10}},
                                         EqualisedPicture{"TilesOfTwoPixels", {23, 19}, {9, 8}},
                                         EqualisedPicture{"TilesBelowAGreyEach", {60, 50}, {5, 5}}),
                         [](const auto& picture) { return std::string(picture.param.name); });

// By hand: of 512 pixels in one tile, each grey may count 2. The other 510 are dealt out: 1 to each grey, and the 254
// that are left to the first 254. Up to 100 that makes 2 for each of 101 greys, and the 2 that stayed.
TEST(Equalise, AnEvenTileByHand) {
  cv::Mat image(16, 32, CV_8UC1, cv::Scalar(100));
  equalise(image, {1, 1});
  EXPECT_EQ(cv::countNonZero(image != cvRound((101 * 2 + 2) * 255.0 / 512.0)), 0);
}
