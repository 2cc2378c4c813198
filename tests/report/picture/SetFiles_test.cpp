#include "report/picture/SetFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "MadeDocument.h"
#include "check/set/Fingerprint.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

namespace fs = std::filesystem;

struct SetFilesFound : ::testing::Test {
  TempFolder folder;

  void put(const std::string& path, const std::string& content) const {
    fs::create_directories((folder.path() / path).parent_path());
    folder.write(path, content);
  }
  /// What a document finds that was made where the set lay in `set_folder`.
  std::string found(const std::string& set_folder, const std::string& path, const std::string& document) const {
    Check check = made_document::check();
    check.folder = set_folder;
    check.inputs = {{"target", path, sha256("the target")}};
    return SetFiles(made_document::json(check), document).find("target").value_or("none");
  }
};

TEST_F(SetFilesFound, WhereTheDocumentSays) {
  put("sets/a/target.ini", "the target");
  EXPECT_EQ(found("", folder.file("sets/a/target.ini"), ""), folder.file("sets/a/target.ini"));
}

TEST_F(SetFilesFound, BesideTheDocument) {
  put("sets/a/target.ini", "the target");
  const std::string in_set = folder.file("sets/a/r.json");
  const std::string beside_set = folder.file("sets/r.json");
  EXPECT_EQ(found("gone/a", "gone/a/target.ini", in_set), folder.file("sets/a/target.ini"));
  EXPECT_EQ(found("gone/a", "gone/a/target.ini", beside_set), folder.file("sets/a/target.ini"));
  EXPECT_EQ(found("a", "a/target.ini", beside_set), folder.file("sets/a/target.ini"));
  EXPECT_EQ(found("/gone/a", "/gone/b/target.ini", in_set), "none");
}

TEST_F(SetFilesFound, OnlyWithTheContentThatWasChecked) {
  put("sets/a/target.ini", "another target");
  EXPECT_EQ(found("", folder.file("sets/a/target.ini"), ""), "none");
}

TEST_F(SetFilesFound, LostAndChangedPicturesAreTold) {
  put("a/left_0.png", "as it was");
  put("a/right_0.png", "drawn over");
  Check check = made_document::check();
  const auto input = [&](const char* role, const char* name) -> SetInput {
    return {role, folder.file(std::string("a/") + name), sha256("as it was")};
  };
  check.inputs = {input("left/0", "left_0.png"), input("right/0", "right_0.png")};
  const SetFiles all(made_document::json(check), "");
  EXPECT_EQ(all.lostPictures(), "");
  EXPECT_TRUE(all.find("left/0"));
  EXPECT_FALSE(all.find("right/0"));
  EXPECT_EQ(all.lostPictures(), "1 of 2 pictures have changed since the check, such as " + check.inputs[1].path);
  check.inputs.push_back(input("left/1", "left_1.png"));
  EXPECT_EQ(SetFiles(made_document::json(check), "").lostPictures(),
            "1 of 3 pictures are neither where the document says nor beside it, such as " + check.inputs[2].path);
}

TEST_F(SetFilesFound, OnlyAsAFile) {
  fs::create_directories(folder.path() / "target.ini");
  EXPECT_EQ(found("", folder.file("target.ini"), ""), "none");
  EXPECT_EQ(found("", "/dev/zero", ""), "none");
}

TEST_F(SetFilesFound, NotWithoutAHashOrARole) {
  put("t", "the target");
  Check check = made_document::check();
  check.inputs = {{"target", folder.file("t"), ""}};
  EXPECT_FALSE(SetFiles(made_document::json(check), "").find("target"));
  EXPECT_FALSE(SetFiles(made_document::json(check), "").find("left/0"));
}

}  // namespace
}  // namespace polarline
