#include "check/init/DotSize.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::HasSubstr;

struct LimitCase {
  const char* board;
  int width;
  double least;
  double most;
};

class DotSizeLimits : public testing::TestWithParam<LimitCase> {};

TEST_P(DotSizeLimits, AreThoseOfTheDetectionAndOfSmallRings) {
  const auto limits = init::dotLimits(polarline::parseBoard(GetParam().board), GetParam().width);
  ASSERT_TRUE(limits);
  EXPECT_NEAR(limits->least, GetParam().least, 0.05);
  EXPECT_NEAR(limits->most, GetParam().most, 0.1);
}

INSTANTIATE_TEST_SUITE_P(
    Widths, DotSizeLimits,
    testing::Values(LimitCase{"dots:26x16:20", 320, 1.3, 12.5}, LimitCase{"dots:26x16:20", 321, 2.7, 25},
                    LimitCase{"dots:26x16:20", 640, 2.7, 25}, LimitCase{"dots:26x16:20", 641, 5.7, 27},
                    LimitCase{"dots:26x16:20", 2047, 5.7, 27}, LimitCase{"dots:26x16:20", 2048, 10.6, 100.2},
                    // Small rings want a pitch of 8 pixels, of which a dot has 0.3.
                    LimitCase{"rings-small:17x15:15", 320, 2.4, 18.8}, LimitCase{"rings-big:37x35:15", 320, 1.6, 18.8},
                    LimitCase{"rings-small:17x15:15", 640, 2.6, 37.6}, LimitCase{"rings-big:37x35:15", 640, 2.0, 37.6},
                    LimitCase{"rings-small:37x35:15", 2448, 7.65, 150.3},
                    LimitCase{"rings-big:37x35:15", 4096, 12.8, 150.3}));

TEST(DotSize, RingBoardsAreNotFoundAtMiddleWidths) {
  const auto board = polarline::parseBoard("rings-small:17x15:15");
  EXPECT_FALSE(init::dotLimits(board, 641));
  EXPECT_FALSE(init::dotLimits(board, 2047));
  const auto warnings = init::judgeDots(board, 1280, {}, {});
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "board_at_width");
  EXPECT_THAT(warnings[0].text, HasSubstr("1280 pixels wide; ring boards are not found from 641 to 2047"));
}

init::SeenBoard seen(int dots, double radius) {
  init::SeenBoard board;
  for (int id = 0; id < dots; ++id) board.dots.emplace(id, cv::Point2d());
  board.dot_radius = radius;
  return board;
}

std::vector<std::string> codes(const init::SeenBoard& left, const init::SeenBoard& right) {
  std::vector<std::string> codes;
  for (const auto& warning : init::judgeDots(polarline::parseBoard("dots:26x16:20"), 1280, left, right))
    codes.push_back(warning.code);
  return codes;
}

TEST(DotSize, GoodPicturesSayNothing) { EXPECT_EQ(codes(seen(416, 9.0), seen(380, 9.0)), std::vector<std::string>{}); }

TEST(DotSize, TooSmallAndTooLargeAreTold) {
  EXPECT_EQ(codes(seen(416, 5.2), seen(416, 27.4)), (std::vector<std::string>{"dots_small", "dots_large"}));
}

TEST(DotSize, MissingDotsAreTold) {
  EXPECT_EQ(codes(seen(416, 9.0), seen(300, 9.0)), std::vector<std::string>{"dots_missing"});
}

TEST(DotSize, TheWarningBearsTheNumbers) {
  const auto warnings = init::judgeDots(polarline::parseBoard("dots:26x16:20"), 1280, seen(0, 4.0), seen(416, 9.0));
  ASSERT_EQ(warnings.size(), 1U);
  EXPECT_EQ(warnings[0].code, "dots_small");
  EXPECT_EQ(
      warnings[0].text,
      "The smallest dots in the left picture of the first pair have a radius of about 4.0 pixels; in pictures 1280 "
      "pixels wide dots of 5.7 to 27.0 pixels radius are found on such a board");
  EXPECT_EQ(warnings[0].pair, 0);
}

}  // namespace
