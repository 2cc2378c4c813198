#include "report/words/GivenUpAdvice.h"

#include <gtest/gtest.h>

#include "MadeDocument.h"
#include "polarline/explain.h"
#include "report/words/CheckRecord.h"

namespace polarline {
namespace {

Check givenUp(std::int32_t code) {
  Check check = made_document::check();
  check.pairs[0] = hand_made::givenUp(check.pairs[0]);
  check.pairs[0].reason = {code, "0 dots were found", "right", "markers"};
  check.inputs = {{"target", "target.ini", "01"}, {"left/0", "left_0.png", "02"}, {"right/0", "right 0.png", "03"}};
  return check;
}

TEST(GivenUpAdviceOf, APairNamesItsStatusAndTheCommand) {
  const Check record = checkRecord(made_document::json(givenUp(-6)));
  const GivenUpAdvice told = givenUpAdvice(record, record.pairs[0], true);
  EXPECT_EQ(told.name, explainPair(-6)->name);
  EXPECT_EQ(told.meaning, explainPair(-6)->meaning);
  EXPECT_NE(told.advice.find("polarline detect 'right 0.png' --target target.ini"), std::string::npos) << told.advice;
  EXPECT_NE(told.advice.find("Run it in the set's folder."), std::string::npos);
  EXPECT_EQ(givenUpAdvice(record, record.pairs[0], false).advice.find("Run it"), std::string::npos);
}

TEST(GivenUpAdviceOf, AFinishedPairAndAnUnknownStatusIsNothing) {
  const Check unknown = givenUp(-4711);
  EXPECT_EQ(givenUpAdvice(unknown, unknown.pairs[0], true).name, "");
  const Check good = made_document::check();
  EXPECT_EQ(givenUpAdvice(good, good.pairs[0], true).name, "");
}

TEST(GivenUpAdviceFolder, IsSaidOnlyWhereACommandNamesFiles) {
  EXPECT_EQ(inSetFolder("Look at the board.", true), "Look at the board.");
  EXPECT_EQ(inSetFolder("See 'polarline detect a.png'.", true),
            "See 'polarline detect a.png'. Run it in the set's folder.");
}

}  // namespace
}  // namespace polarline
