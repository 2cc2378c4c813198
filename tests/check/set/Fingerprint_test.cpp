#include "check/set/Fingerprint.h"

#include <gtest/gtest.h>

#include "support/TempFolder.h"

namespace polarline {
namespace {

TEST(FingerprintSha256, HasTheDigestsOfTheStandard) {
  EXPECT_EQ(sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(sha256(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(FingerprintSha256, OfAFileIsThatOfItsBytes) {
  const TempFolder folder;
  const std::string bytes = std::string(70000, '\xFF') + std::string(1, '\0') + "end\r\n";
  EXPECT_EQ(sha256OfFile(folder.write("a b", bytes)), sha256(bytes));
  EXPECT_EQ(sha256OfFile(folder.write("empty", "")), sha256(""));
}

TEST(FingerprintSha256, OfWhatCannotBeReadIsEmpty) {
  const TempFolder folder;
  EXPECT_EQ(sha256OfFile(folder.file("none")), "");
  EXPECT_EQ(sha256OfFile(folder.path().string()), "");
}

TEST(FingerprintOfASet, IsThatOfRolesAndContents) {
  const std::vector<SetInput> inputs = {{"target", "/a/t.ini", "22"}, {"polar", "/a/p.txt", "11"}};
  EXPECT_EQ(fingerprint(inputs), sha256("polar 11\ntarget 22\n"));
  EXPECT_EQ(fingerprint({{"polar", "elsewhere", "11"}, {"target", "", "22"}}), fingerprint(inputs));
  EXPECT_NE(fingerprint({{"polar", "/a/p.txt", "22"}, {"target", "/a/t.ini", "11"}}), fingerprint(inputs));
  EXPECT_NE(fingerprint({{"polar", "/a/p.txt", "11"}}), fingerprint(inputs));
}

}  // namespace
}  // namespace polarline
