#include "report/fill/FillMarks.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

TEST(FillMarksOf, ReplacesEachWhereverItStands) {
  EXPECT_EQ(filledMarks("a@1@b@2@c@1@", {{{"@1@", "x"}, {"@2@", ""}, {"@3@", "z"}}}), "axbcx");
  EXPECT_EQ(filledMarks("", {{{"@1@", "x"}, {"@2@", ""}, {"@3@", "z"}}}), "");
}

TEST(FillMarksOf, DoesNotLookAtWhatReplaces) {
  EXPECT_EQ(filledMarks("@1@@2@", {{{"@1@", "@2@"}, {"@2@", "@1@@3@"}, {"@3@", "z"}}}), "@2@@1@@3@");
}

}  // namespace
}  // namespace polarline
