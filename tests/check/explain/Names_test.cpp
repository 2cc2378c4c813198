#include "check/explain/Names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(NamesNearest, ComeFirstAndAreThreeAtMost) {
  // Letters to change from "abcdef": 0 is itself, then 1, 1, 2, 2.
  EXPECT_THAT(nearest("abcdef", {"abcxyf", "abcde", "abxdef", "bcdefg", "qqqqqq"}),
              ElementsAre("abcde", "abxdef", "abcxyf"));
}

TEST(NamesNearest, CountLettersPutInTakenOutAndReplaced) {
  EXPECT_THAT(nearest("kitten", {"sitting"}), ElementsAre("sitting"));  // Three changes of seven letters.
  EXPECT_THAT(nearest("abc", {"abd"}), ElementsAre("abd"));
  EXPECT_THAT(nearest("abc", {"xyc"}), IsEmpty());
  EXPECT_THAT(nearest("abcd", {"abxy"}), ElementsAre("abxy"));  // Two of four: the farthest that is near.
  EXPECT_THAT(nearest("", {"a", "abc"}), ElementsAre("a"));
}

TEST(NamesNearest, DoNotMindCapitalLetters) {
  EXPECT_THAT(nearest("DY_MEANS", {"dy_means", "tri_rms"}), ElementsAre("dy_means"));
  EXPECT_THAT(nearest("posereport", {"PoseReport"}), ElementsAre("PoseReport"));
}

TEST(NamesOffer, IsAQuestion) {
  EXPECT_EQ(offer({}), "");
  EXPECT_EQ(offer({"a"}), "; did you mean a?");
  EXPECT_EQ(offer({"a", "b"}), "; did you mean a or b?");
  EXPECT_EQ(offer({"a", "b", "c"}), "; did you mean a, b or c?");
}

}  // namespace
}  // namespace polarline
