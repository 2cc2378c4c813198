#include "check/init/NamePieces.h"

#include <gtest/gtest.h>

namespace {

using init::NamePieces;

TEST(NamePieces, DigitsLettersAndEachOtherCharacterAreOnePiece) {
  EXPECT_EQ(init::piecesOf("cam0/a__12.5"), (NamePieces{{"cam", false},
                                                        {"0", true},
                                                        {"/", false},
                                                        {"a", false},
                                                        {"_", false},
                                                        {"_", false},
                                                        {"12", true},
                                                        {".", false},
                                                        {"5", true}}));
  EXPECT_EQ(init::piecesOf("\xc3\xbc"
                           "b"),
            (NamePieces{{"\xc3\xbc"
                         "b",
                         false}}));
  EXPECT_TRUE(init::piecesOf("").empty());
}

TEST(NamePieces, AnExtensionHoldsALetter) {
  EXPECT_EQ(init::withoutExtension("a.b/l_07.png"), "a.b/l_07");
  EXPECT_EQ(init::withoutExtension("l.jp2"), "l");
  EXPECT_EQ(init::withoutExtension("12.05"), "12.05");
  EXPECT_EQ(init::withoutExtension("a.b/frame"), "a.b/frame");
  EXPECT_EQ(init::withoutExtension("a/.png"), "a/.png");
}

TEST(NamePieces, ADigitStaysOfZeros) {
  EXPECT_EQ(init::withoutLeadingZeros("0070"), "70");
  EXPECT_EQ(init::withoutLeadingZeros("000"), "0");
  EXPECT_EQ(init::withoutLeadingZeros(""), "");
}

}  // namespace
