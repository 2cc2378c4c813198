#include "check/set/SetIdentity.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "polarline/errors.h"
#include "support/CopiedSet.h"

namespace polarline {
namespace {

struct SetIdentity : ::testing::Test {
  CopiedSet set;
};

TEST_F(SetIdentity, IsThatOfTheCheck) {
  EXPECT_EQ(identityOf(set.set(), {}), set.check().id);
  set.write("limits.txt", "dy_means<=1\n");
  EXPECT_EQ(identityOf(set.set(), {}), set.check().id);
}

TEST_F(SetIdentity, OfSomePairsIsThatOfTheirCheck) {
  CheckOptions options;
  options.pairs = {1, 1};
  EXPECT_EQ(identityOf(set.set(), options.pairs), set.check(options).id);
  EXPECT_NE(identityOf(set.set(), options.pairs), identityOf(set.set(), {}));
}

TEST_F(SetIdentity, NeedsEveryFile) {
  std::filesystem::remove(set.file("left_1.png"));
  EXPECT_THROW(identityOf(set.set(), {}), InputError);
  std::filesystem::create_directory(set.file("left_1.png"));  // There, and not to be read.
  EXPECT_EQ(identityOf(set.set(), {}), "");
}

TEST_F(SetIdentity, NamesTheFileThatIsAnotherByNow) {
  const Set whole = openSet(set.set());
  const auto before = hashedFiles(whole);
  EXPECT_EQ(changedFile(before, whole), "");
  set.write("limits.txt", "dy_means<=1\n");
  EXPECT_EQ(changedFile(before, openSet(set.set())), set.file("limits.txt"));
  EXPECT_EQ(changedFile(hashedFiles(openSet(set.set())), whole), set.file("limits.txt"));
  set.append("target.ini", "\n");
  EXPECT_EQ(changedFile(before, whole), whole.target);
  std::filesystem::remove(set.file("polar.txt"));
  EXPECT_EQ(changedFile(before, whole), whole.polar);
}

TEST_F(SetIdentity, KnowsWhatWasRead) {
  EXPECT_TRUE(areAllRead({{"polar", "p", "11"}}));
  EXPECT_FALSE(areAllRead({{"polar", "p", "11"}, {"left/0", "l", ""}}));
}

}  // namespace
}  // namespace polarline
