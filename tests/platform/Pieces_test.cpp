#include "platform/Pieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PiecesOf, KeepsEmptyPiecesExceptBehindTheLastSeparator) {
  EXPECT_THAT(piecesOf("a,,b,", ','), ElementsAre("a", "", "b"));
  EXPECT_THAT(piecesOf(",", ','), ElementsAre(""));
  EXPECT_THAT(piecesOf(",a", ','), ElementsAre("", "a"));
  EXPECT_THAT(piecesOf("a,,", ','), ElementsAre("a", ""));
}

TEST(PiecesOf, AnEmptyTextHasNone) { EXPECT_THAT(piecesOf("", ','), IsEmpty()); }

TEST(PiecesOf, ATextWithoutSeparatorIsOnePiece) { EXPECT_THAT(piecesOf(" a b ", ','), ElementsAre(" a b ")); }

TEST(PiecesWordsOf, SplitsAtRunsOfEachBlank) {
  EXPECT_THAT(wordsOf("  a \t b\tc ", " \t"), ElementsAre("a", "b", "c"));
  EXPECT_THAT(wordsOf("a b", "\t"), ElementsAre("a b"));
}

TEST(PiecesWordsOf, BlanksAloneGiveNone) {
  EXPECT_THAT(wordsOf(" \t ", " \t"), IsEmpty());
  EXPECT_THAT(wordsOf("", " \t"), IsEmpty());
}
