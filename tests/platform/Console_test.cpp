#include "platform/Console.h"

#include <gtest/gtest.h>

#include <sstream>
#include <thread>

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

TEST(Console, RedirectionTakesTheLinesOfItsThreadAndNests) {
  const ConsoleCapture process;
  std::ostringstream out;
  std::ostringstream err;
  {
    const console::Redirection outer(out, err);
    console::line("outer ", 1);
    console::err() << "failure";
    std::ostringstream inner_out;
    {
      const console::Redirection inner(inner_out, inner_out);
      console::line("inner");
    }
    console::line("outer ", 2);
    std::thread([] { console::line("another thread"); }).join();
    EXPECT_EQ(inner_out.str(), "inner\n");
  }
  console::line("behind");
  EXPECT_EQ(out.str(), "outer 1\nouter 2\n");
  EXPECT_EQ(err.str(), "failure");
  EXPECT_EQ(process.out(), "another thread\nbehind\n");
  EXPECT_EQ(process.err(), "");
}

TEST(Console, RedirectionKeepsTheNumberFormatOfTheProcess) {
  const ConsoleCapture process;
  std::ostringstream out;
  {
    const console::Redirection redirection(out, out);
    console::useFixedNotation();
    console::line(0.5);
  }
  console::line(0.5);
  EXPECT_EQ(out.str(), "0.50000000\n");
  EXPECT_EQ(process.out(), "0.5\n");
}
