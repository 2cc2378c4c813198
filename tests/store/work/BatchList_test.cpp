#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/batch.h"
#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Pair;

std::string problemOf(const std::string& text) {
  try {
    parseBatchList(text, "l.txt");
  } catch (const InputError& error) {
    return error.what();
  }
  return "";
}

TEST(BatchList, TakesAFolderALineAndMetadataBehindTabs) {
  const auto sets =
      parseBatchList("a/b c\n\n# not this\nd\tserial=A=1\tstation=\t\ttime=2026-03-01T22:15:00+01:00\r\n", "l.txt");
  ASSERT_EQ(sets.size(), 2U);
  EXPECT_EQ(sets[0].folder, "a/b c");
  EXPECT_EQ(sets[0].line, 1U);
  EXPECT_THAT(sets[0].metadata, IsEmpty());
  EXPECT_EQ(sets[1].folder, "d");
  EXPECT_EQ(sets[1].line, 4U);
  EXPECT_THAT(sets[1].metadata,
              ElementsAre(Pair("serial", "A=1"), Pair("station", ""), Pair("time", "2026-03-01T22:15:00+01:00")));
}

TEST(BatchList, TakesALineOfBlanksForAnEmptyOne) {
  const auto sets = parseBatchList("   \na\n \t\r\n", "l.txt");
  ASSERT_EQ(sets.size(), 1U);
  EXPECT_EQ(sets[0].line, 2U);
}

TEST(BatchList, IsKnownByItsText) {
  const auto sets = parseBatchList("a\nb\n", "l.txt");
  EXPECT_EQ(sets[0].list.size(), 64U);
  EXPECT_EQ(sets[0].list, sets[1].list);
  EXPECT_EQ(sets[0].list, parseBatchList("a\nb\n", "other.txt")[0].list);
  EXPECT_NE(sets[0].list, parseBatchList("a\nc\n", "l.txt")[0].list);
}

TEST(BatchList, NamesTheLineThatCannotBeUsed) {
  for (const auto& [text, problem] : std::vector<std::pair<std::string, std::string>>{
           {"a\nb\tserial\n", "l.txt, line 2: 'serial' was found; key=value was wanted"},
           {"a\t=3\n", "l.txt, line 1: '=3' was found"},
           {"\n\ta=3\n", "l.txt, line 2: begins with a TAB"},
           {"a\tk=1\tk=2\n", "l.txt, line 1: tells 'k' twice"},
           {"a\ttime=yesterday\n", "l.txt, line 1: time=yesterday was found"},
           {"# nothing\n\n", "l.txt: names no set"},
           {"", "l.txt: names no set"}}) {
    EXPECT_THAT(problemOf(text), HasSubstr(problem)) << text;
  }
}

TEST(BatchList, OfAFileIsThatOfItsText) {
  const TempFolder folder;
  EXPECT_EQ(readBatchList(folder.write("l.txt", "one\ntwo")).at(1).folder, "two");
  for (const std::string& path : {folder.file("none"), folder.path().string()})
    EXPECT_THROW(readBatchList(path), InputError);
}

}  // namespace
}  // namespace polarline
