#include "platform/ConsoleRecord.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include "support/ConsoleCapture.h"

namespace {

TEST(ConsoleRecord, LinesGoWhereTheyWentAndAreSaidAgain) {
  console::Record record;
  std::ostringstream both;
  {
    const console::Redirection redirection(both, both);
    {
      const console::Recording recording(record);
      console::line("report ", 1);
      console::err() << "failure " << 2 << '\n';
      console::line("report ", 3);
    }
    EXPECT_EQ(both.str(), "report 1\nfailure 2\nreport 3\n");
    both.str("");
    record.sayAgain();
  }
  EXPECT_EQ(both.str(), "report 1\nfailure 2\nreport 3\n");
}

TEST(ConsoleRecord, EachStreamGetsItsOwnLinesFlushedAtTheSamePlaces) {
  console::Record record;
  const auto say = [&record] {
    const console::Recording recording(record);
    console::line("first");
    console::err() << "failure";
    console::out() << "without "
                   << "an end" << '\n';
    console::line("last");
  };
  const ConsoleCapture live;
  say();
  const ConsoleCapture again;
  record.sayAgain();
  EXPECT_EQ(again.out(), "first\nwithout an end\nlast\n");
  EXPECT_EQ(again.err(), "failure");
  EXPECT_EQ(live.out(), again.out());
  EXPECT_EQ(live.err(), again.err());
  EXPECT_EQ(live.outFlushedAt(), again.outFlushedAt());
}

TEST(ConsoleRecord, NumbersAreInTheFormatOfTheStream) {
  console::Record record;
  const ConsoleCapture capture;
  console::useFixedNotation();
  {
    const console::Recording recording(record);
    console::line(0.5);
  }
  EXPECT_EQ(capture.out(), "0.50000000\n");
}

TEST(ConsoleRecord, WhatWasSaidBeforeAnExceptionIsOut) {
  console::Record record;
  const ConsoleCapture capture;
  const auto fail = [&record] {
    const console::Recording recording(record);
    console::line("before");
    throw std::runtime_error("failure");
  };
  EXPECT_THROW(fail(), std::runtime_error);
  console::line("behind");
  EXPECT_EQ(capture.out(), "before\nbehind\n");
}

TEST(ConsoleRecord, EmptyRecordSaysNothing) {
  const ConsoleCapture capture;
  console::Record().sayAgain();
  EXPECT_EQ(capture.out() + capture.err(), "");
  EXPECT_TRUE(capture.outFlushedAt().empty());
}

}  // namespace
