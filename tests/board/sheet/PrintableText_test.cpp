#include "board/sheet/PrintableText.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Case {
  std::string text;
  std::string printed;
};

class PrintableTextOf : public testing::TestWithParam<Case> {};

TEST_P(PrintableTextOf, IsCleanUtf8) { EXPECT_EQ(boards::printable(GetParam().text), GetParam().printed); }

const std::string kBad = "\xEF\xBF\xBD";

INSTANTIATE_TEST_SUITE_P(
    , PrintableTextOf,
    testing::Values(Case{"", ""}, Case{"Board 7", "Board 7"},
                    Case{"Gr\xC3\xB6\xC3\x9F"
                         "e",
                         "Gr\xC3\xB6\xC3\x9F"
                         "e"},
                    Case{"\xE2\x98\x83 \xF0\x9F\x8E\xAF", "\xE2\x98\x83 \xF0\x9F\x8E\xAF"}, Case{"a\nb\tc", "a b c"},
                    Case{std::string("a\0b", 3), "a b"}, Case{"a\xC2\x85z", "a z"}, Case{"a\xFFz", "a" + kBad + "z"},
                    Case{"a\xC3", "a" + kBad}, Case{"\xC0\xAF", kBad + kBad}, Case{"\xE0\x80\xAF", kBad + kBad + kBad},
                    Case{"\xED\xA0\x80", kBad + kBad + kBad}, Case{"\xEF\xBF\xBE", kBad + kBad + kBad},
                    Case{"\xF4\x90\x80\x80", kBad + kBad + kBad + kBad}, Case{"\xE2\x98 x", kBad + kBad + " x"}));

}  // namespace
