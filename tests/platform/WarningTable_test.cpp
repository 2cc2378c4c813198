#include "platform/WarningTable.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

const warnings::Table& table() {
  static const warnings::Table codes = {{"first", "A meaning.", "An advice."}, {"second", "Another.", "Do it."}};
  return codes;
}

TEST(WarningTable, GivesTheAdviceOfTheCode) {
  const polarline::Warning warning = warnings::make(table(), "second", "3 of 4", 7);
  EXPECT_EQ(warning.code, "second");
  EXPECT_EQ(warning.text, "3 of 4");
  EXPECT_EQ(warning.advice, "Do it.");
  EXPECT_EQ(warning.pair, 7);
}

TEST(WarningTable, IsOfTheWholeWithoutAPair) { EXPECT_EQ(warnings::make(table(), "first", "").pair, -1); }

TEST(WarningTable, KnowsNoOtherCode) { EXPECT_THROW(warnings::make(table(), "third", ""), std::out_of_range); }

}  // namespace
