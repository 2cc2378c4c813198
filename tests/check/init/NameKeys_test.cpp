#include "check/init/NameKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Names = std::vector<std::string>;

std::vector<std::string> exact(const std::vector<init::NameKey>& keys) {
  std::vector<std::string> texts;
  for (const init::NameKey& key : keys) texts.push_back(key.exact());
  return texts;
}

/// Whether some reading gives both sides these keys.
bool reads(const Names& left, const Names& right, const Names& left_keys, const Names& right_keys) {
  const auto readings = init::keyReadings(left, right);
  return std::ranges::any_of(readings, [&](const init::KeyReading& reading) {
    return exact(reading.left) == left_keys && exact(reading.right) == right_keys;
  });
}

TEST(NameKeys, WhatVariesOnEitherSideCounts) {
  EXPECT_TRUE(reads({"left_0007.png", "left_0012.png"}, {"right_0007.bmp"}, {"7/", "12/"}, {"7/"}));
}

TEST(NameKeys, FoldersCountAsNames) {
  EXPECT_TRUE(reads({"run1/left/3", "run2/left/3"}, {"run1/right/3", "run2/right/3"}, {"1/", "2/"}, {"1/", "2/"}));
}

TEST(NameKeys, PlacesAreCountedFromTheEndToo) {
  EXPECT_TRUE(reads({"data/left/1.png", "data/left/2.png"}, {"r/1.png"}, {"1/", "2/"}, {"1/"}));
}

TEST(NameKeys, EachSideMayHaveItsNumberInAnotherPlace) {
  EXPECT_TRUE(reads({"l_1_x", "l_2_x"}, {"right-z-1", "right-z-2"}, {"1/", "2/"}, {"1/", "2/"}));
}

TEST(NameKeys, WhatTheNamesOfASideShareFallsAway) {
  EXPECT_TRUE(reads({"leftA", "leftB"}, {"rightA", "rightB"}, {"A/", "B/"}, {"A/", "B/"}));
}

TEST(NameKeys, ANumberIsNeverCut) {
  EXPECT_TRUE(reads({"img 10x", "img 11"}, {"r 10x", "r 11"}, {"10/x/", "11/"}, {"10/x/", "11/"}));
}

TEST(NameKeys, LeadingZerosDoNotCountButInAFraction) {
  EXPECT_TRUE(reads({"l12.05", "l13.50"}, {"r12.5", "r013.5"}, {"12/05/", "13/5/"}, {"12/5/", "13/5/"}));
}

}  // namespace
