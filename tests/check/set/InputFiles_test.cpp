#include "check/set/InputFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "check/set/SetIdentity.h"
#include "check/set/UnreadInput.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

struct InputFilesOf : ::testing::Test {
  TempFolder folder;
  Set set;

  InputFilesOf() {
    set.polar = folder.write("polar.txt", "type: 0\n");
    set.target = folder.write("target.ini", "rows: 7\n");
    set.calibration = folder.write("calib.bin", std::string("\0\1\n\2", 4));
  }
  std::string contentOf(const InputFiles& files, const std::string& path) const {
    return TempFolder::contentOf(files.of(path).path);
  }
};

TEST_F(InputFilesOf, ASetAreItsBytesOfThatMomentWhateverBecomesOfTheFiles) {
  const InputFiles files(set);
  EXPECT_TRUE(files.areCopied());
  std::filesystem::remove(set.target);
  folder.write("calib.bin", "other");
  EXPECT_EQ(contentOf(files, set.target), "rows: 7\n");
  EXPECT_EQ(contentOf(files, set.calibration), std::string("\0\1\n\2", 4));
  EXPECT_EQ(files.of(set.target).shown, set.target);
}

TEST_F(InputFilesOf, ASetHaveTheHashesOfItsFiles) {
  const InputFiles files(set);
  const auto wanted = hashedFiles(set);
  ASSERT_EQ(files.hashes().size(), 3U);
  for (std::size_t k = 0; k < wanted.size(); ++k) {
    EXPECT_EQ(files.hashes()[k].role, wanted[k].role);
    EXPECT_EQ(files.hashes()[k].path, wanted[k].path);
    EXPECT_EQ(files.hashes()[k].sha256, wanted[k].sha256);
  }
}

TEST_F(InputFilesOf, ASetGoWithTheObject) {
  std::string copy;
  {
    const InputFiles files(set);
    copy = files.of(set.polar).path;
    EXPECT_NE(copy, set.polar);
    EXPECT_TRUE(std::filesystem::exists(copy));
  }
  EXPECT_FALSE(std::filesystem::exists(std::filesystem::path(copy).parent_path()));
}

TEST_F(InputFilesOf, OddNamesEndAsTheyDid) {
  for (const std::string& name : {std::string("what?.json"), std::string("line\nend.yml"),
                                  std::string("back\\slash.xml"), std::string(240, 'n') + ".yaml"}) {
    set.target = folder.write(name, name);
    const InputFiles files(set);
    const std::string copy = files.of(set.target).path;
    EXPECT_EQ(copy.find_first_of("\n?\\"), std::string::npos);
    EXPECT_TRUE(copy.ends_with(std::filesystem::path(name).extension().string())) << copy;
    EXPECT_EQ(TempFolder::contentOf(copy), name);
  }
}

TEST_F(InputFilesOf, ASetAreTheFilesThemselvesWhereNothingCanBeCopied) {
  const char* const before = std::getenv("TMPDIR");
  const std::string kept = before != nullptr ? before : "";
  setenv("TMPDIR", folder.file("none").c_str(), 1);
  const InputFiles files(set);
  if (kept.empty()) {
    unsetenv("TMPDIR");
  } else {
    setenv("TMPDIR", kept.c_str(), 1);
  }
  EXPECT_FALSE(files.areCopied());
  EXPECT_EQ(files.of(set.polar).path, set.polar);
  EXPECT_EQ(files.hashes()[0].sha256, hashedFiles(set)[0].sha256);
}

TEST_F(InputFilesOf, AFileThatIsAwayAreNone) {
  std::filesystem::remove(set.target);
  EXPECT_THROW(InputFiles{set}, UnreadInput);
}

}  // namespace
}  // namespace polarline
