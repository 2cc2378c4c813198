#include "check/picture/LabelLayout.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

const cv::Size kCanvas(200, 100);

TEST(LabelLayout, ALabelStandsBelowAndToTheRightOfItsPlace) {
  const auto labels = layOut({{"7", {50, 40}, {20, 10}}}, kCanvas);
  ASSERT_EQ(labels.size(), 1U);
  EXPECT_EQ(labels[0].text, "7");
  EXPECT_EQ(labels[0].box, cv::Rect(52, 42, 20, 10));
}

TEST(LabelLayout, AtTheEdgeItGoesToAnotherCorner) {
  EXPECT_EQ(layOut({{"7", {190, 90}, {20, 10}}}, kCanvas).at(0).box, cv::Rect(168, 78, 20, 10));
  EXPECT_EQ(layOut({{"7", {190, 5}, {20, 10}}}, kCanvas).at(0).box, cv::Rect(168, 7, 20, 10));
}

TEST(LabelLayout, WithoutRoomThereIsNone) {
  EXPECT_TRUE(layOut({{"7", {50, 40}, {300, 10}}}, kCanvas).empty());
  EXPECT_TRUE(layOut({{"7", {-500, 40}, {20, 10}}}, kCanvas).empty());
}

// A lattice far too dense for its labels.
TEST(LabelLayout, NoLabelLiesOnAnotherAndTheFirstWishesWin) {
  std::vector<LabelWish> wishes;
  for (int y = 0; y < 100; y += 7) {
    for (int x = 0; x < 200; x += 9) wishes.push_back({std::to_string(wishes.size()), {x, y}, {22, 11}});
  }
  const auto labels = layOut(wishes, kCanvas);
  EXPECT_GT(labels.size(), 20U);
  EXPECT_LT(labels.size(), wishes.size());
  EXPECT_EQ(labels[0].text, "0");
  for (std::size_t i = 0; i < labels.size(); ++i) {
    EXPECT_EQ(labels[i].box & cv::Rect({0, 0}, kCanvas), labels[i].box);
    for (std::size_t j = 0; j < i; ++j) EXPECT_TRUE((labels[i].box & labels[j].box).empty()) << i << ", " << j;
  }
}

}  // namespace
