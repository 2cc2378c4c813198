#include "check/set/PictureSource.h"

#include <gtest/gtest.h>

#include <opencv2/imgcodecs.hpp>

#include "check/set/Fingerprint.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

/// Pictures of one colour, 10 + k on the left and 20 + k on the right.
struct PictureSourceList : ::testing::Test {
  TempFolder folder;
  std::vector<ListedPair> pairs;

  PictureSourceList() {
    for (int k = 0; k < 3; ++k) {
      const std::string number = std::to_string(k) + ".png";
      cv::imwrite(folder.file("l" + number), cv::Mat(4, 6, CV_8UC1, cv::Scalar(10 + k)));
      cv::imwrite(folder.file("r" + number), cv::Mat(4, 6, CV_8UC1, cv::Scalar(20 + k)));
      pairs.push_back({static_cast<std::size_t>(k) + 2, "l" + number, "r" + number, folder.path().string() + "/"});
    }
  }
};

TEST_F(PictureSourceList, GivesThePairsInTheirOrder) {
  ListedPictures source(pairs, 0);
  ASSERT_EQ(source.pairs(), 3U);
  for (std::size_t k = 0; k < 3; ++k) {
    const auto [left, right] = source.take(k);
    EXPECT_EQ(left.at<std::uint8_t>(3, 5), 10 + k);
    EXPECT_EQ(right.at<std::uint8_t>(0, 0), 20 + k);
  }
  EXPECT_EQ(source.size(), cv::Size(6, 4));
  EXPECT_FALSE(source.hasColour());
}

TEST_F(PictureSourceList, IsAheadByOnePair) {
  ListedPictures source(pairs, 0);
  source.take(0);
  const auto inputs = source.inputs();  // Waits for the pair that is read ahead.
  std::filesystem::remove(folder.file("l1.png"));
  EXPECT_FALSE(source.take(1).first.empty());
  std::filesystem::remove(folder.file("r2.png"));
  source.inputs();
  EXPECT_EQ(inputs.size(), 6U);
}

TEST_F(PictureSourceList, LeavesThePlaceOfWhatCannotBeDecodedEmpty) {
  folder.write("r1.png", "no picture");
  ListedPictures source(pairs, 0);
  source.take(0);
  const auto [left, right] = source.take(1);
  EXPECT_FALSE(left.empty());
  EXPECT_TRUE(right.empty());
  EXPECT_EQ(source.lastSizes()[0], cv::Size(6, 4));
  EXPECT_TRUE(source.lastSizes()[1].empty());
}

TEST_F(PictureSourceList, HashesEveryPictureTakenOrNot) {
  ListedPictures source(pairs, 7);
  source.take(0);
  const std::vector<SetInput> inputs = source.inputs();
  ASSERT_EQ(inputs.size(), 6U);
  const char* const roles[] = {"left/7", "right/7", "left/8", "right/8", "left/9", "right/9"};
  for (std::size_t k = 0; k < 6; ++k) {
    EXPECT_EQ(inputs[k].role, roles[k]);
    EXPECT_EQ(inputs[k].path, folder.file((k % 2 == 0 ? "l" : "r") + std::to_string(k / 2) + ".png"));
    EXPECT_EQ(inputs[k].sha256, sha256(TempFolder::contentOf(inputs[k].path)));
  }
}

TEST_F(PictureSourceList, SeesColourOnEitherSide) {
  cv::imwrite(folder.file("r1.png"), cv::Mat(4, 6, CV_8UC3, cv::Scalar(1, 2, 3)));
  ListedPictures source(pairs, 0);
  source.take(0);
  EXPECT_FALSE(source.hasColour());
  source.take(1);
  EXPECT_TRUE(source.hasColour());
}

}  // namespace
}  // namespace polarline
