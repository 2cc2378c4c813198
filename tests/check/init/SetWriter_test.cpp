#include "check/init/SetWriter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "polarline/errors.h"
#include "support/FolderContents.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"
#include "support/Unprivileged.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

namespace fs = std::filesystem;

const init::SetFiles kFiles = {{"polar.txt", "new polar"}, {"list.txt", "new list"}, {"calib.bin", "new calib"}};

std::string refusal(const std::string& folder, const init::SetFiles& kept = {}) {
  try {
    init::refuseOldSet(folder, kept);
  } catch (const polarline::InputError& error) {
    return error.what();
  }
  return "";
}

TEST(SetWriter, MakesAFolderAndThoseAboveIt) {
  const TempFolder folder;
  EXPECT_THAT(init::writeSet(folder.file("a/b/set/"), kFiles, {}), ElementsAre("calib.bin", "list.txt", "polar.txt"));
  EXPECT_THAT(contentsOf(folder.path()),
              ElementsAre(Pair("a/b/set/calib.bin", "new calib"), Pair("a/b/set/list.txt", "new list"),
                          Pair("a/b/set/polar.txt", "new polar")));
}

TEST(SetWriter, LinksAndCopiesPictures) {
  const TempFolder folder;
  const std::string source = folder.write("source.png", "pixels");
  const std::vector<init::ListedLine> lines = {
      {{"left_0000.png", source, init::Placement::kLink}, {"right_0000.png", source, init::Placement::kCopy}},
      {{"../source.png", source, init::Placement::kWhereItIs}, {"../source.png", source, init::Placement::kWhereItIs}}};
  init::writeSet(folder.file("set"), kFiles, lines);
  EXPECT_EQ(fs::read_symlink(folder.file("set/left_0000.png")), source);
  EXPECT_FALSE(fs::is_symlink(folder.file("set/right_0000.png")));
  EXPECT_EQ(folder.read("set/right_0000.png"), "pixels");
}

TEST(SetWriter, ReplacesTheFilesOfASetAndNothingElse) {
  const TempFolder folder;
  for (const char* name : {"polar.txt", "calib.json", "rectified.txt", "target.json", "limits.txt", "picture.png"})
    folder.write(name, "old");
  init::writeSet(folder.path().string(), kFiles, {});
  EXPECT_THAT(contentsOf(folder.path()),
              ElementsAre(Pair("calib.bin", "new calib"), Pair("limits.txt", "old"), Pair("list.txt", "new list"),
                          Pair("picture.png", "old"), Pair("polar.txt", "new polar")));
}

TEST(SetWriter, OldFilesAreRefusedByName) {
  const TempFolder folder;
  EXPECT_EQ(refusal(folder.path().string()), "");
  EXPECT_EQ(refusal(folder.file("not there")), "");
  folder.write("limits.txt", "mine");
  folder.write("picture.png", "mine");
  EXPECT_EQ(refusal(folder.path().string()), "");
  folder.write("polar.txt", "mine");
  folder.write("calib.json", "mine");
  EXPECT_THAT(refusal(folder.path().string()), AllOf(HasSubstr("polar.txt, calib.json"), HasSubstr("--force")));
  EXPECT_THAT(refusal(folder.path().string(), {{"calib.json", "mine"}}), Not(HasSubstr("calib.json")));
  EXPECT_THAT(refusal(folder.path().string(), {{"calib.json", "other"}}), HasSubstr("calib.json"));
}

TEST(SetWriter, AFileInThePlaceOfTheFolderIsRefused) {
  const TempFolder folder;
  EXPECT_NO_THROW(init::requirePlace(folder.path().string()));
  EXPECT_NO_THROW(init::requirePlace(folder.file("not there")));
  EXPECT_THROW(init::requirePlace(""), polarline::InputError);
  EXPECT_THROW(init::requirePlace(folder.write("polar.txt", "mine")), polarline::InputError);
}

TEST(SetWriter, OldPicturesAreRefusedByName) {
  const TempFolder folder;
  folder.write("left_0000.png", "mine");
  const std::string source = folder.write("a b.png", "x");
  const std::vector<init::ListedLine> lines = {
      {{"left_0000.png", source, init::Placement::kLink}, {"right_0000.png", source, init::Placement::kLink}}};
  try {
    init::refuseOldPictures(folder.path().string(), lines);
    FAIL() << "not refused";
  } catch (const polarline::InputError& error) {
    EXPECT_THAT(error.what(), AllOf(HasSubstr("left_0000.png"), Not(HasSubstr("right_0000.png"))));
  }
}

TEST(SetWriter, WithoutRightToWriteNothingStays) {
  const TempFolder folder;
  fs::create_directory(folder.file("closed"));
  fs::permissions(folder.file("closed"), fs::perms::owner_read | fs::perms::owner_exec);
  {
    const Unprivileged bound;
    EXPECT_THROW(init::writeSet(folder.file("closed/set"), kFiles, {}), polarline::OutputError);
    EXPECT_THROW(init::writeSet(folder.file("closed"), kFiles, {}), polarline::OutputError);
  }
  fs::permissions(folder.file("closed"), fs::perms::owner_all);
  EXPECT_THAT(contentsOf(folder.path()), IsEmpty());
}

TEST(SetWriter, OnAFullDeviceNothingStaysAndNothingIsLost) {
  const TempFolder folder;
  fs::create_directory(folder.file("old"));
  folder.write("old/polar.txt", "old");
  {
    const FullDevice full;
    EXPECT_THROW(init::writeSet(folder.file("set"), kFiles, {}), polarline::OutputError);
    EXPECT_THROW(init::writeSet(folder.file("old"), kFiles, {}), polarline::OutputError);
  }
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("old/polar.txt", "old")));
}

}  // namespace
