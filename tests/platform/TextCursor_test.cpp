#include "platform/TextCursor.h"

#include <gtest/gtest.h>

namespace {

using documents::TextCursor;

TEST(TextCursor, SkipsOverAndToCharactersAndCountsColumns) {
  TextCursor cursor("  ab,c");
  cursor.skipOver(" ");
  EXPECT_EQ(cursor.column(), 2U);
  EXPECT_TRUE(cursor.isFirstInLine());
  EXPECT_TRUE(cursor.startsWith("ab"));
  EXPECT_FALSE(cursor.startsWith("b"));
  cursor.skipTo(";,");
  EXPECT_EQ(cursor.rest(), ",c");
  EXPECT_TRUE(cursor.startsWithOneOf(",;"));
  EXPECT_FALSE(cursor.startsWithOneOf("ab"));
  EXPECT_FALSE(cursor.isFirstInLine());
}

TEST(TextCursor, ColumnsBeginAnewWithALine) {
  TextCursor cursor("ab\n c\nd");
  cursor.skip(1);
  cursor.leaveLine();
  EXPECT_EQ(cursor.column(), 0U);
  cursor.skip(1);
  EXPECT_EQ(cursor.column(), 1U);
  EXPECT_TRUE(cursor.isFirstInLine());
  cursor.leaveLine();
  EXPECT_EQ(cursor.rest(), "d");
}

TEST(TextCursor, StopsAtTheEnd) {
  TextCursor cursor("ab");
  EXPECT_EQ(cursor.peek(1), 'b');
  EXPECT_EQ(cursor.peek(2), '\0');
  cursor.skip(3);
  EXPECT_TRUE(cursor.atEnd());
  cursor.skipOver("a");
  cursor.skipTo("a");
  cursor.leaveLine();
  cursor.skip(1);
  EXPECT_TRUE(cursor.atEnd());
  EXPECT_EQ(cursor.column(), 0U);
  EXPECT_EQ(cursor.peek(0), '\0');
  EXPECT_FALSE(cursor.startsWithOneOf(std::string_view("\0", 1)));
}

TEST(TextCursor, SkipsPastAMarkOrToTheEnd) {
  TextCursor cursor("a*b*/c*/");
  cursor.skipPast("*/");
  EXPECT_EQ(cursor.rest(), "c*/");
  cursor.skipPast("/*");
  EXPECT_TRUE(cursor.atEnd());
}

TEST(TextCursor, MayLeaveTheTextAtOnce) {
  TextCursor cursor("ab\nc");
  cursor.leaveText();
  EXPECT_TRUE(cursor.atEnd());
}

}  // namespace
