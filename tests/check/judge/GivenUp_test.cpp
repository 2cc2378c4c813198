#include "check/judge/GivenUp.h"

#include <gtest/gtest.h>

#include "HandMadeCheck.h"

namespace polarline {
namespace {

/// A check of one finished pair and two that were given up.
Check checkWith(Verdict verdict, const char* limit) {
  Check check;
  check.pairs = {hand_made::pair(0, {0.1}, {}), hand_made::givenUp(hand_made::pair(1, {}, {})),
                 hand_made::givenUp(hand_made::pair(2, {}, {}))};
  check.verdict = verdict;
  check.limits = {{limit, 0.1, 0, true, ""}};
  return check;
}

TEST(GivenUp, IsToldOfWhereTheVerdictHidesIt) {
  Check check = checkWith(Verdict::kPass, "dy_means<=1");
  warnOfGivenUp(check);
  ASSERT_EQ(check.warnings.size(), 1U);
  EXPECT_EQ(check.warnings[0].code, "pairs_given_up");
  EXPECT_EQ(check.warnings[0].text, "2 of 3 pairs were given up; the limit given_up<=0 judges them");
  EXPECT_EQ(check.warnings[0].pair, -1);
  EXPECT_FALSE(check.warnings[0].advice.empty());
}

TEST(GivenUp, IsNotToldOfWhereItIsJudgedOrNoPairWas) {
  for (const char* limit : {"given_up<=2", "finished >= 1"}) {
    Check judged = checkWith(Verdict::kPass, limit);
    warnOfGivenUp(judged);
    EXPECT_TRUE(judged.warnings.empty()) << limit;
  }
  for (const Verdict verdict : {Verdict::kFail, Verdict::kError}) {
    Check failed = checkWith(verdict, "dy_means<=1");
    warnOfGivenUp(failed);
    EXPECT_TRUE(failed.warnings.empty());
  }
  Check whole = checkWith(Verdict::kPass, "dy_means<=1");
  whole.pairs.resize(1);
  warnOfGivenUp(whole);
  EXPECT_TRUE(whole.warnings.empty());
}

}  // namespace
}  // namespace polarline
