#include "polar/run/RunTexts.h"

#include <gtest/gtest.h>

#include <string>

#include "support/ConsoleCapture.h"

namespace {

TEST(RunTexts, TimedLineTellsMillisecondsAndTheCallbacksNumber) {
  const ConsoleCapture console;
  printTimedLine("What", std::chrono::steady_clock::now() - std::chrono::seconds(2), 0.125);
  const std::string line = console.out();
  const std::string start = "What\t----time:";
  const std::string end = "\t-----callback:0.125\n";
  ASSERT_EQ(line.substr(0, start.size()), start);
  ASSERT_GT(line.size(), start.size() + end.size());
  EXPECT_EQ(line.substr(line.size() - end.size()), end);
  const double elapsed = std::stod(line.substr(start.size()));
  EXPECT_GE(elapsed, 2000.0);
  EXPECT_LT(elapsed, 60000.0);
}

}  // namespace
