#include "calibrations/document/Shown.h"

#include <gtest/gtest.h>

namespace {

using calibrations::shown;

TEST(Shown, IsInQuotes) { EXPECT_EQ(shown("a b"), "'a b'"); }

TEST(Shown, HidesWhatATerminalWouldObey) { EXPECT_EQ(shown("a\x1b[2J\n\xff~"), "'a?[2J??~'"); }

TEST(Shown, IsCut) {
  EXPECT_EQ(shown(std::string(60, 'x')), "'" + std::string(60, 'x') + "'");
  EXPECT_EQ(shown(std::string(61, 'x')), "'" + std::string(60, 'x') + "...'");
}

}  // namespace
