#include "check/run/PlainPath.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(PlainPath, LeavesOrdinaryNamesAlone) {
  for (const char* path : {"", "a b/c.json", "/x/\xFF'\".ini"}) EXPECT_EQ(PlainPath(path).get(), path);
}

TEST(PlainPath, ReachesOddNamesByALinkThatGoes) {
  const TempFolder folder;
  for (const char* name : {"line\nend.json", "what?base64.json", "back\\slash.json"}) {
    folder.write(name, name);
    std::string link;
    {
      const PlainPath plain(folder.file(name));
      link = plain.get();
      EXPECT_EQ(link.find_first_of("\n?\\"), std::string::npos);
      EXPECT_TRUE(link.ends_with(".json"));
      EXPECT_EQ(TempFolder::contentOf(link), name);
    }
    EXPECT_FALSE(std::filesystem::is_symlink(link));
    EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(link).parent_path()));
    EXPECT_TRUE(folder.has(name));
  }
}

}  // namespace
}  // namespace polarline
