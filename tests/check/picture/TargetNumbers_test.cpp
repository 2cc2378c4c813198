#include "check/picture/TargetNumbers.h"

#include <gtest/gtest.h>

#include "check/picture/TargetFile.h"
#include "check/run/BoardInput.h"
#include "polarline/errors.h"
#include "tests/support/ConsoleCapture.h"
#include "tests/support/TempFolder.h"

namespace polarline {
namespace {

struct Written {
  const char* text;
  const char* words;  ///< Empty: taken.
};

class TargetNumbers : public ::testing::TestWithParam<Written> {
 protected:
  template <typename Read>
  static std::string refusal(const Read& read) {
    const ConsoleCapture console;
    try {
      read();
    } catch (const InputError& error) {
      return error.what();
    }
    return "";
  }
  /// What a check and a detection say of a file.
  static void expectRefusal(const std::string& path, const std::string& words) {
    const std::string wanted = words.empty() ? "" : path + words;
    EXPECT_EQ(refusal([&] { readBoardInfo(path); }), wanted);
    EXPECT_EQ(refusal([&] {
                kestrune::RingTarget target;
                loadTarget(path, target);
              }),
              wanted);
  }
};

TEST_P(TargetNumbers, OfATextAreJudgedAsWritten) {
  const TempFolder folder;
  expectRefusal(folder.write("target.ini", std::string("board_type: 2\n") + GetParam().text), GetParam().words);
}

INSTANTIATE_TEST_SUITE_P(
    All, TargetNumbers,
    ::testing::Values(
        Written{"rows: 9\ncols: 11\nstep: 10\n", ""}, Written{"rows: 9 # of dots\ncols: 11\nstep: 0.5\r\n", ""},
        Written{"rows: zz\ncols: 11\nstep: 10\n", ": rows: 'zz' was found; a whole number of 1 to 65535 was wanted"},
        Written{"rows: 9\ncols: -3\nstep: 10\n", ": cols: '-3' was found; a whole number of 1 to 65535 was wanted"},
        Written{"rows: 65536\ncols: 2\nstep: 10\n",
                ": rows: '65536' was found; a whole number of 1 to 65535 was wanted"},
        Written{"rows: 0\ncols: 2\nstep: 10\n", ": rows: '0' was found; a whole number of 1 to 65535 was wanted"},
        Written{"cols: 11\nstep: 10\n", ": rows: is not there; a whole number of 1 to 65535 was wanted"},
        Written{"rows: 9\ncols: 11\n", ": step: is not there; a number above 0 was wanted"},
        Written{"rows: 9\ncols: 11\nstep: -1\n", ": step: '-1' was found; a number above 0 was wanted"}));

using TargetNumbersOf = TargetNumbers;

TEST_F(TargetNumbersOf, DocumentsAreJudgedToo) {
  const TempFolder folder;
  const auto document = [&](const std::string& members) {
    return folder.write("target.json", R"({"patterns": [{"board_type": 2, )" + members + "}]}");
  };
  expectRefusal(document(R"("rows": 9, "cols": 11, "step": 10.5)"), "");
  expectRefusal(document(R"("rows": "zz", "cols": 11, "step": 10)"),
                ": rows: '\"zz\"' was found; a whole number of 1 to 65535 was wanted");
  expectRefusal(document(R"("rows": 9, "cols": -3, "step": 10)"),
                ": cols: '-3' was found; a whole number of 1 to 65535 was wanted");
  expectRefusal(document(R"("rows": 9, "cols": 11)"), ": step: is not there; a number above 0 was wanted");
}

}  // namespace
}  // namespace polarline
