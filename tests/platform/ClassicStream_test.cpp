#include "platform/ClassicStream.h"

#include <gtest/gtest.h>

#include "support/CommaLocale.h"

TEST(ClassicStream, ReadsPointsInACommaLocale) {
  const CommaLocale comma;
  double value = 0.0;
  classic::input("1234.5") >> value;
  EXPECT_EQ(value, 1234.5);
}

TEST(ClassicStream, WritesPointsAndNoGroupsInACommaLocale) {
  const CommaLocale comma;
  std::ostringstream stream = classic::output();
  stream << 1234567 << ' ' << 0.5;
  EXPECT_EQ(stream.str(), "1234567 0.5");
}

TEST(ClassicStreamCommaLocale, ReallyChangesOtherStreams) {
  const CommaLocale comma;
  std::ostringstream stream;
  stream << 1000.5;
  EXPECT_EQ(stream.str(), "1.000,5");
}
