#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/init.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

TEST(InitText, TellsWhatWasFoundGuessedAndWarnedAndWhatComesNext) {
  polarline::MadeSet set;
  set.folder = "set";
  set.files = {"left_0000.png", "list.txt", "polar.txt", "right_0000.png"};
  set.pairs.resize(3);
  set.alone_left = {"l9.png"};
  set.alone_right = {"r7.png"};
  set.picture = {640, 480};
  set.channels = 1;
  set.bits = 8;
  set.board = "dots:9x7:20";
  set.expected = 63;
  set.left = {63, 7.5, 9, 7};
  set.right = {60, 0.0};
  set.calibration_format = "kalibr";
  set.model = "fisheye";
  set.baseline = 60.25;
  set.guesses = {"First guess"};
  set.warnings = {{"some_code", "What was found", "What to do.", -1}};
  set.next = "polarline check set";
  const std::string text = polarline::initText(set);
  EXPECT_THAT(text,
              AllOf(HasSubstr("3, pictures 640x480, 8 bits, 1 channel\n"), HasSubstr("left l9.png\n"),
                    HasSubstr("right r7.png\n"),
                    HasSubstr("left 63 of 63 dots in 9 columns and 7 rows, radius about 7.5 px; right 60 of 63 dots\n"),
                    HasSubstr("kalibr, fisheye, baseline 60.25 board units\n")));
  EXPECT_THAT(text, AllOf(HasSubstr("First guess.\n"), HasSubstr("some_code: What was found. What to do.\n"),
                          HasSubstr("set: list.txt, polar.txt, and 2 pictures\n"), EndsWith(" polarline check set")));
}

TEST(InitText, ManyPicturesWithoutPartnerAreCounted) {
  polarline::MadeSet set;
  for (int k = 0; k < 25; ++k) set.alone_left.push_back("l" + std::to_string(k) + ".png");
  EXPECT_THAT(polarline::initText(set),
              AllOf(HasSubstr("left l19.png\n"), Not(HasSubstr("l20.png")), HasSubstr("left and 5 more\n")));
}

}  // namespace
