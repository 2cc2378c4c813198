#include "calibrations/document/Value.h"

#include <gtest/gtest.h>

namespace {

using calibrations::Value;

TEST(Value, FindsItsMembers) {
  Value map;
  map.keys = {"a", "b"};
  map.items.resize(2);
  map.items[1].text = "second";
  EXPECT_EQ(map.member("b")->text, "second");
  EXPECT_EQ(map.member("c"), nullptr);
  EXPECT_EQ(Value().member("a"), nullptr);
}

TEST(Value, CountsAllThatIsInIt) {
  Value inner;
  inner.items.resize(3);
  Value outer;
  outer.items = {inner, inner};
  EXPECT_EQ(outer.count(), 9U);
}

}  // namespace
