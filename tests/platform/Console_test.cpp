#include "platform/Console.h"

#include <gtest/gtest.h>

#include "support/ConsoleCapture.h"

TEST(Console, TheTwoStreamsAreThoseOfTheProcess) {
  const ConsoleCapture capture;
  console::out() << "report";
  console::err() << "failure";
  EXPECT_EQ(capture.out(), "report");
  EXPECT_EQ(capture.err(), "failure");
}

TEST(Console, LineIsFlushedBehindItsEnd) {
  const ConsoleCapture capture;
  console::line("points: ", 12, ' ', 0.5F);
  console::out() << "without an end";
  console::line();
  EXPECT_EQ(capture.out(), "points: 12 0.5\nwithout an end\n");
  EXPECT_EQ(capture.outFlushedAt(), (std::vector<std::size_t>{15, 30}));
}

TEST(Console, FixedNotationStaysOnStandardOutput) {
  const ConsoleCapture capture;
  console::out() << 0.5 << ' ';
  console::useFixedNotation();
  console::out() << 0.5 << ' ';
  console::out() << 12345678.0;
  console::err() << 0.5;
  EXPECT_EQ(capture.out(), "0.5 0.50000000 12345678.00000000");
  EXPECT_EQ(capture.err(), "0.5");
}
