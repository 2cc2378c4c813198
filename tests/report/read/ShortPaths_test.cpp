#include "report/read/ShortPaths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "MadeDocument.h"

namespace polarline {
namespace {

struct Shortened {
  const char* text;
  const char* wanted;
};

class ShortPathsText : public ::testing::TestWithParam<Shortened> {};

TEST_P(ShortPathsText, HasFileNamesOnly) {
  EXPECT_EQ(withoutFolders(GetParam().text, {"my sets/a b/polar.txt", "my sets/a b"}), GetParam().wanted);
}

INSTANTIATE_TEST_SUITE_P(
    All, ShortPathsText,
    ::testing::Values(Shortened{"", ""}, Shortened{"no path", "no path"}, Shortened{"/a/b/c.png", "c.png"},
                      Shortened{"/c.png: is cut off", "c.png: is cut off"},
                      Shortened{"see /a/b and '/x/y z'", "see b and 'y z'"}, Shortened{"(/a/b)", "(b)"},
                      Shortened{"C:\\a\\b.txt, D:/x/y", "b.txt, y"}, Shortened{"\\\\host\\share\\b.txt", "b.txt"},
                      Shortened{"/a/b/", "b"}, Shortened{"/a/b/, then", "b, then"},
                      Shortened{"my sets/a b/polar.txt: odd", "polar.txt: odd"},
                      Shortened{"my sets/a b has none", "a b has none"}, Shortened{"my sets/a b/", "a b"},
                      Shortened{"my sets/a bc", "my sets/a bc"}, Shortened{"0.1 px/deg", "0.1 px/deg"},
                      Shortened{"1 / 2", "1 / 2"}, Shortened{"left/0 and docs/x.md", "left/0 and docs/x.md"},
                      Shortened{"file:///a/b", "file:b"}, Shortened{"/", "/"}, Shortened{"../a b/c", "c"},
                      Shortened{"in ./a/b, ~/c d/e", "in e"}, Shortened{".../a", ".../a"}));

INSTANTIATE_TEST_SUITE_P(
    Blanks, ShortPathsText,
    ::testing::Values(
        Shortened{"/home/Jane Doe/secret project/lim.txt, line 1: 0.1 px/deg", "lim.txt, line 1: 0.1 px/deg"},
        Shortened{"/home/Jane Doe/lim.txt/x: is no folder", "x: is no folder"},
        Shortened{"/home/Jane Doe/c.json was not written; a/b", "c.json was not written; a/b"},
        Shortened{"/home/Doe, Jane (old)/c d.json (see a/b)", "c d.json (see a/b)"},
        Shortened{"/home/Jane's things/x y is no folder", "x y is no folder"},
        Shortened{"'/home/Jane's things/x y', 'a/b'", "'x y', 'a/b'"}, Shortened{"(/home/Jane D./x) a/b", "(x) a/b"},
        Shortened{"/a b/c and /d e/f", "c and f"}, Shortened{"\"C:\\Jane Doe\\x\" in a/b", "\"x\" in a/b"},
        Shortened{"/a b/c\nd/e", "c\nd/e"},
        Shortened{"detect '/home/Jane'\\''s things/l.png' --target '/t u/t.ini'", "detect 'l.png' --target 't.ini'"},
        // What may be a folder goes, though it is the sentence's here.
        Shortened{"/a b/c at 1 px/deg", "deg"}));

TEST(ShortPathsFile, IsTheLastPart) {
  EXPECT_EQ(fileName("a/b.txt"), "b.txt");
  EXPECT_EQ(fileName("a\\b.txt"), "b.txt");
  EXPECT_EQ(fileName("a/b/"), "b");
  EXPECT_EQ(fileName("b"), "b");
  EXPECT_EQ(fileName(""), "");
  EXPECT_EQ(fileName("/"), "");
}

TEST(ShortPathsDocument, HasNoneLeft) {
  Check check = made_document::check();
  check.folder = "/secret/place/set";
  check.inputs = {{"polar", "/secret/place/set/polar.txt", ""}, {"left/0", "../secret/l.png", ""}};
  check.pairs[0].left = "/secret/place/l.png";
  check.status.text = "/secret/place/set/polar.txt: nothing reads it, nor ../secret/l.png";
  check.warnings = {{"unknown_key", "in /secret/else/x.txt", "advice"}};
  check.diagnosis.emplace();
  check.diagnosis->text = "/secret/place/set";
  check.correction = {"/secret/corrected.json", 0.1, 0.1};
  Json document = made_document::json(check);
  shortenPaths(document, {});
  EXPECT_THAT(document.dump(), ::testing::Not(::testing::HasSubstr("secret")));
  EXPECT_EQ(document["set"]["inputs"][0]["path"], "polar.txt");
  EXPECT_EQ(document["set"]["folder"], "set");
  EXPECT_EQ(document["pairs"][0]["left"], "l.png");
  EXPECT_EQ(document["status"]["text"], "polar.txt: nothing reads it, nor l.png");
  EXPECT_EQ(document["diagnosis"]["correction"]["path"], "corrected.json");
}

TEST(ShortPathsFolder, MayEndWithASeparator) {
  Check check = made_document::check();
  check.folder = "sets/a/";
  check.status.text = "sets/a/polar.txt at 1 px/deg";
  Json document = made_document::json(check);
  shortenPaths(document, {});
  EXPECT_EQ(document["set"]["folder"], "a");
  EXPECT_EQ(document["status"]["text"], "polar.txt at 1 px/deg");
  check.folder = "/";
  document = made_document::json(check);
  shortenPaths(document, {});
  EXPECT_EQ(document["status"]["text"], "sets/a/polar.txt at 1 px/deg");
}

TEST(ShortPathsFolder, IsKnownWhateverItsNameHas) {
  Check check = made_document::check();
  check.folder = "/home/Doe: Jane; \"x\" /line.txt 4";
  check.status.text = check.folder + "/polar.txt: none; " + check.folder + " and /home/Doe: Jane; \"x\" /limits/a";
  check.warnings = {{"not_written", "new sets/c: d/e was not written", "advice"}};
  Json document = made_document::json(check);
  shortenPaths(document, {"new sets/c: d/e"});
  EXPECT_EQ(document["status"]["text"], "polar.txt: none; line.txt 4 and a");
  EXPECT_EQ(document["warnings"][0]["text"], "e was not written");
}

}  // namespace
}  // namespace polarline
