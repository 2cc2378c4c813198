#include "check/refined/RefinedWarnings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace polarline {
namespace {

using ::testing::HasSubstr;

RefinedPicture pictureOf(const std::vector<DotState>& states) {
  RefinedPicture picture;
  for (const DotState state : states) picture.dots.emplace_back().state = state;
  return picture;
}

PairCheck pairOf(std::size_t index) {
  PairCheck pair;
  pair.index = index;
  return pair;
}

RefinedPicture good() { return pictureOf({DotState::kRefined, DotState::kRefined, DotState::kClipped}); }

TEST(RefinedWarnings, SayWhereLessThanHalfCouldBeRefinedAndWhatTheOthersAre) {
  RefinedWarnings warnings;
  warnings.look(pairOf(3), {}, {good(), pictureOf({DotState::kRefined, DotState::kClipped})});
  EXPECT_TRUE(warnings.list.empty()) << "half is enough";
  const RefinedPicture covered =
      pictureOf({DotState::kClipped, DotState::kCovered, DotState::kRefined, DotState::kCovered});
  warnings.look(pairOf(4), {}, {good(), covered});
  ASSERT_EQ(warnings.list.size(), 1U);
  EXPECT_EQ(warnings.list[0].code, "few_refined");
  EXPECT_EQ(warnings.list[0].pair, 4);
  EXPECT_THAT(warnings.list[0].text, HasSubstr("1 of 4 dots of the right picture"));
  EXPECT_THAT(warnings.list[0].text, HasSubstr("most of the others are covered"));
  EXPECT_FALSE(warnings.list[0].advice.empty());
}

TEST(RefinedWarnings, SayWhatFailed) {
  RefinedWarnings warnings;
  RefinedPair failed;
  failed.problem = "no residual could be taken";
  warnings.look(pairOf(2), failed, {good(), good()});
  ASSERT_EQ(warnings.list.size(), 1U);
  EXPECT_EQ(warnings.list[0].code, "refining_failed");
  EXPECT_EQ(warnings.list[0].pair, 2);
  EXPECT_THAT(warnings.list[0].text, HasSubstr("pair 2 has no refined figures: no residual could be taken"));
}

TEST(RefinedWarnings, ComeOnceOfEachKind) {
  RefinedWarnings warnings;
  RefinedPair failed;
  failed.problem = "p";
  for (std::size_t pair = 0; pair < 3; ++pair)
    warnings.look(pairOf(pair), failed, {pictureOf({DotState::kUnclear}), pictureOf({DotState::kUnclear})});
  ASSERT_EQ(warnings.list.size(), 2U);
  EXPECT_EQ(warnings.list[0].pair, 0);
  EXPECT_EQ(warnings.list[1].pair, 0);
}

TEST(RefinedWarnings, HaveNothingToSayOfAPairWithoutDots) {
  RefinedWarnings warnings;
  warnings.look(pairOf(0), {}, {});
  EXPECT_TRUE(warnings.list.empty());
}

}  // namespace
}  // namespace polarline
