#include "check/explain/WarningOf.h"

#include <gtest/gtest.h>

#include "polarline/explain.h"

namespace polarline {
namespace {

TEST(WarningOf, AKnownCodeHasItsAdvice) {
  const Warning warning = warningOf("picture_size", "what was found", 3);
  EXPECT_EQ(warning.code, "picture_size");
  EXPECT_EQ(warning.text, "what was found");
  EXPECT_EQ(warning.advice, explain("picture_size")->advice);
  EXPECT_EQ(warning.pair, 3);
  EXPECT_EQ(warningOf("picture_size", "").pair, -1);
}

TEST(WarningOf, AnUnknownCodeHasNoAdvice) { EXPECT_EQ(warningOf("none", "text").advice, ""); }

}  // namespace
}  // namespace polarline
