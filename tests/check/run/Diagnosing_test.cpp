#include "check/run/Diagnosing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/CopiedSet.h"

namespace polarline {
namespace {

using ::testing::Contains;
using ::testing::Field;
using ::testing::HasSubstr;

TEST(Diagnosing, OfWrongInputsMakesUpNoCausesAndCorrectsNothing) {
  const CopiedSet set;
  set.write("list.txt", "#L R\nright_0.png left_0.png\n");
  CheckOptions options;
  options.write_corrected = set.parent.file("corrected.json");
  const Check check = set.check(options);
  EXPECT_THAT(check.warnings, Contains(Field(&Warning::code, "sides_exchanged")));
  ASSERT_TRUE(check.diagnosis) << check.status.text;
  EXPECT_TRUE(check.diagnosis->causes.empty());
  EXPECT_THAT(check.diagnosis->text, HasSubstr("first see to the warning sides_exchanged"));
  EXPECT_FALSE(set.parent.has("corrected.json"));
}

TEST(Diagnosing, OfPairsRectifiedElsewhereTellsTheRowsOnly) {
  const RenderedSet rendered(small_scene::rectified());
  const CopiedSet set(rendered);
  const Check check = set.check();
  ASSERT_TRUE(check.diagnosis);
  EXPECT_TRUE(check.diagnosis->causes.empty());
  EXPECT_THAT(check.diagnosis->text, HasSubstr("rectified elsewhere"));
  EXPECT_LT(check.diagnosis->rows_before, 0.2);
}

TEST(Diagnosing, IsThatOfThePairsBeforeTheOneThatEndedTheRun) {
  const CopiedSet set;
  set.append("polar.txt", "discalsave: 1\n");
  CheckOptions options;
  options.pairs = {0, 0};
  const Check first = set.check(options);
  ASSERT_EQ(first.verdict, Verdict::kPass);
  set.blank("left_1.png");
  const Check check = set.check();
  ASSERT_EQ(check.status.exit_code, 2);
  ASSERT_TRUE(check.diagnosis);
  EXPECT_EQ(check.diagnosis->text, first.diagnosis->text);
  EXPECT_EQ(check.diagnosis->rows_before, first.diagnosis->rows_before);
  set.blank("left_0.png");
  EXPECT_FALSE(set.check().diagnosis);
}

TEST(Diagnosing, OfFramesIsNone) {
  const CopiedSet set(MemoryRun::twoFrames());
  EXPECT_FALSE(set.check().diagnosis);
}

}  // namespace
}  // namespace polarline
