#include "check/picture/NumberingProblem.h"

#include <gtest/gtest.h>

namespace polarline {
namespace {

TEST(NumberingProblem, IsTheReasonOfTheOthers) {
  Detection detection;
  EXPECT_FALSE(numberingProblem(detection));
  detection.warnings = {{"dots_too_small", "", ""}};
  EXPECT_FALSE(numberingProblem(detection));
  for (const char* code : {"strange_ids", "mirrored_board", "marker_span"}) {  // Each later one explains those before.
    detection.warnings.push_back({code, "", ""});
    ASSERT_TRUE(numberingProblem(detection));
    EXPECT_EQ(numberingProblem(detection)->code, code);
  }
}

}  // namespace
}  // namespace polarline
