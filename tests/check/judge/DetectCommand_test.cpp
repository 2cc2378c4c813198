#include "check/judge/DetectCommand.h"

#include <gtest/gtest.h>

namespace {

using polarline::Check;
using polarline::withDetectCommand;

constexpr const char* kAdvice = "Look with 'polarline detect IMAGE --target FILE' at it.";

Check known() {
  Check check;
  check.inputs = {{"target", "my set/target.ini", ""}, {"left/3", "my set/l.png", ""}, {"right/3", "../r.png", ""}};
  return check;
}

TEST(DetectCommand, CanBeCopied) {
  EXPECT_EQ(withDetectCommand(kAdvice, known(), 3, "right"),
            "Look with 'polarline detect ../r.png --target 'my set/target.ini'' at it.");
  EXPECT_EQ(withDetectCommand(kAdvice, known(), 3, ""),
            "Look with 'polarline detect 'my set/l.png' --target 'my set/target.ini'' at it.");
}

TEST(DetectCommand, StaysAsItIsWhereNoPictureIsKnown) {
  EXPECT_EQ(withDetectCommand(kAdvice, known(), 2, "left"), kAdvice);
  EXPECT_EQ(withDetectCommand(kAdvice, Check{}, 3, "left"), kAdvice);
  EXPECT_EQ(withDetectCommand("Read on.", known(), 3, "left"), "Read on.");
}

TEST(DetectCommand, IsNotToldOfARectifiedPictureWhichNoFileShows) {
  polarline::PairCheck pair;
  pair.index = 3;
  pair.reason = {-6, "", "left", ""};
  EXPECT_EQ(polarline::adviceOn(pair, kAdvice, known()),
            "Look with 'polarline detect 'my set/l.png' --target 'my set/target.ini'' at it.");
  pair.reason.of_rectified = true;
  const std::string advice = polarline::adviceOn(pair, kAdvice, known());
  EXPECT_EQ(advice.find("detect"), std::string::npos);
  EXPECT_NE(advice.find("savepolarline"), std::string::npos);
  EXPECT_EQ(polarline::adviceOn(pair, "Read on.", known()), "Read on.");
}

TEST(DetectCommand, IsOfThePairThatTheStatusIsOf) {
  Check check = known();
  check.inputs.push_back({"left/5", "five.png", ""});
  check.status.advice = kAdvice;
  Check of_exception = check;
  polarline::nameDetectCommand(of_exception, 5);
  EXPECT_NE(of_exception.status.advice.find("detect five.png"), std::string::npos);
  check.pairs.resize(2);
  check.pairs[0].index = 3;
  check.pairs[0].reason = {-6, "", "right", ""};
  check.pairs[1].index = 5;
  check.pairs[1].reason = {-9, "", "", ""};
  check.status.code = 8;  // No pair was finished.
  Check of_first = check;
  polarline::nameDetectCommand(of_first, 6);
  EXPECT_NE(of_first.status.advice.find("detect ../r.png"), std::string::npos);
  check.status.code = -9;  // The last one ended the run.
  polarline::nameDetectCommand(check, 6);
  EXPECT_NE(check.status.advice.find("detect five.png"), std::string::npos);
}

}  // namespace
