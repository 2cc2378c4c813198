#include "calibrations/document/ValueBuilder.h"

#include <gtest/gtest.h>

namespace {

using calibrations::UnreadableValue;
using calibrations::Value;
using calibrations::ValueBuilder;

TEST(ValueBuilder, BuildsListsInMaps) {
  ValueBuilder builder;
  builder.beginMap();
  EXPECT_TRUE(builder.wantsKey());
  builder.key("a");
  EXPECT_FALSE(builder.wantsKey());
  builder.beginList();
  builder.text("1");
  builder.nothing();
  builder.end();
  EXPECT_FALSE(builder.take());
  builder.key("b");
  builder.text("2");
  builder.end();
  const Value value = builder.take().value();
  ASSERT_NE(value.member("a"), nullptr);
  EXPECT_EQ(value.member("a")->items.size(), 2U);
  EXPECT_EQ(value.member("b")->text, "2");
  EXPECT_EQ(value.member("c"), nullptr);
  EXPECT_EQ(value.count(), 5U);
}

TEST(ValueBuilder, RefusesAKeyTwice) {
  ValueBuilder builder;
  builder.beginMap();
  builder.key("a");
  builder.nothing();
  EXPECT_THROW(builder.key("a"), UnreadableValue);
}

TEST(ValueBuilder, BoundsTheDepth) {
  ValueBuilder builder;
  for (std::size_t level = 0; level < ValueBuilder::kDeepest; ++level) builder.beginList();
  EXPECT_THROW(builder.beginList(), UnreadableValue);
  EXPECT_THROW(builder.beginMap(), UnreadableValue);
}

TEST(ValueBuilder, BoundsTheCount) {
  ValueBuilder builder;
  builder.beginList();
  for (std::size_t k = 1; k < ValueBuilder::kMost; ++k) builder.text("1");
  EXPECT_THROW(builder.text("1"), UnreadableValue);
}

TEST(ValueBuilder, BoundsTheKeys) {
  ValueBuilder builder;
  builder.beginMap();
  for (std::size_t k = 0; k < ValueBuilder::kMostKeys; ++k) {
    builder.key(std::to_string(k));
    builder.nothing();
  }
  EXPECT_THROW(builder.key("more"), UnreadableValue);
}

TEST(ValueBuilder, CountsWhatIsRepeatedWhole) {
  ValueBuilder builder;
  builder.beginList();
  builder.beginList();
  for (std::size_t k = 0; k < 1000; ++k) builder.text("1");
  const Value thousand = builder.end();
  for (std::size_t k = 0; k < ValueBuilder::kMost / 1001 - 1; ++k) builder.again(thousand);
  EXPECT_THROW(builder.again(thousand), UnreadableValue);
}

}  // namespace
