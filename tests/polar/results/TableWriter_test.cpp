#include "polar/results/TableWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <locale>
#include <random>
#include <sstream>
#include <string>

namespace {

template <typename... Cells>
std::string written(const Cells&... cells) {
  std::ostringstream stream;
  { TableWriter(stream).row(cells...); }
  return stream.str();
}

template <typename Number>
std::string streamed(Number value) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream << value;
  return stream.str();
}

TEST(TableWriter, CellsAreSeparatedByCommas) {
  EXPECT_EQ(written(12, "rms", 0.5F), "12,rms,0.5\n");
  EXPECT_EQ(written("id_", " ", "x"), "id_, ,x\n");
  EXPECT_EQ(written(""), "\n");
}

TEST(TableWriter, SpecialNumbersReadAsTheStreamsOwn) {
  for (const double value : {0.0, -0.0, 1.0, -17.4618, 1e-5, 123456.0, 1234567.0, 999999.5, 0.0001, 0.00001, 1e300,
                             std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
                             std::numeric_limits<double>::quiet_NaN(), -std::numeric_limits<double>::quiet_NaN(),
                             std::numeric_limits<double>::denorm_min(), std::numeric_limits<double>::max()}) {
    EXPECT_EQ(written(value), streamed(value) + "\n");
    EXPECT_EQ(written(static_cast<float>(value)), streamed(static_cast<float>(value)) + "\n");
  }
}

TEST(TableWriter, RandomFloatsReadAsTheStreamsOwn) {
  std::mt19937 random(5);
  std::ostringstream expected;
  std::ostringstream stream;
  {
    TableWriter writer(stream);
    for (std::int32_t k = 0; k < 20000; ++k) {
      const float value =
          std::ldexp(static_cast<float>(random()) - 2147483648.0F, static_cast<int>(random() % 80) - 60);
      expected << k - 10000 << ',' << value << '\n';
      writer.row(k - 10000, value);
    }
  }
  EXPECT_EQ(stream.str(), expected.str());
}

TEST(TableWriter, LongTextGoesThroughWhole) {
  const std::string text(100000, 'x');
  EXPECT_EQ(written(text), text + "\n");
}

// The writer's own buffer has 16384 bytes: what comes at its very end must not get lost, nor written behind it.
TEST(TableWriter, ARowsEndFitsBehindAFullBuffer) {
  for (const std::size_t size : {16382U, 16383U, 16384U, 16385U, 32768U}) {
    const std::string text(size, 'x');
    EXPECT_EQ(written(text), text + "\n");
    EXPECT_EQ(written(text, "y"), text + ",y\n");
    EXPECT_EQ(written(text, WrittenNumber(-17)), text + ",-17\n");
  }
}

TEST(TableWriter, WrittenNumbersReadAsTheStreamsOwn) {
  for (const std::int32_t value : {0, 7, -1, 5182, 1234567890, std::numeric_limits<std::int32_t>::max(),
                                   std::numeric_limits<std::int32_t>::min()}) {
    EXPECT_EQ(written(WrittenNumber(value), "x"), streamed(value) + ",x\n");
  }
}

TEST(TableWriter, FailedStreamTakesNothing) {
  std::ostringstream stream;
  stream.setstate(std::ios::failbit);
  {
    TableWriter writer(stream);
    writer.row(1, 2.0F);
  }
  stream.clear();
  EXPECT_EQ(stream.str(), "");
}

TEST(TableWriter, FlushHandsOverAtOnce) {
  std::ostringstream stream;
  TableWriter writer(stream);
  writer.row(1);
  EXPECT_EQ(stream.str(), "");
  writer.flush();
  EXPECT_EQ(stream.str(), "1\n");
}

}  // namespace
