#include "check/init/FilePattern.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

struct FitCase {
  const char* name;
  const char* pattern;
  bool fits;
};

class FilePatternFits : public testing::TestWithParam<FitCase> {};

TEST_P(FilePatternFits, AsAShellHasIt) {
  EXPECT_EQ(init::fitsPattern(GetParam().name, GetParam().pattern), GetParam().fits)
      << GetParam().name << ' ' << GetParam().pattern;
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FilePatternFits,
    testing::Values(FitCase{"left_07.png", "left_*.png", true}, FitCase{"left_07.png", "*", true},
                    FitCase{"left_07.png", "left_??.png", true}, FitCase{"left_7.png", "left_??.png", false},
                    FitCase{"left_7.png", "left_[0-5].png", false}, FitCase{"left_5.png", "left_[0-5].png", true},
                    FitCase{"left_5.png", "left_[!0-4].png", true}, FitCase{"left_3.png", "left_[!0-4].png", false},
                    FitCase{"a]b", "a[]]b", true}, FitCase{"a-b", "a[x-]b", true}, FitCase{"a[b", "a[b", true},
                    FitCase{"aab", "*a*b", true}, FitCase{".hidden.png", "*.png", false},
                    FitCase{".hidden.png", ".*.png", true}, FitCase{"", "*", true},
                    FitCase{"left.png", "left.pn", false}));

class FilePatternPictures : public testing::Test {
 protected:
  FilePatternPictures() {
    std::filesystem::create_directories(folder_.path() / "cam0" / "deep");
    for (const char* name : {"left_10.png", "left_9.png", "right_9.png", "notes.txt", "cam0/1.PNG", "cam0/deep/2.jpg"})
      folder_.write(name, "x");
  }
  std::vector<std::string> named(const std::vector<std::string>& names) const {
    std::vector<std::string> full;
    for (const std::string& name : names) full.push_back(folder_.file(name));
    std::vector<std::string> found = init::picturesNamed(full, "left");
    for (std::string& path : found)
      path = std::filesystem::path(path).lexically_normal().lexically_relative(folder_.path()).string();
    return found;
  }
  std::string refusal(const std::vector<std::string>& names) const {
    try {
      named(names);
    } catch (const polarline::InputError& error) {
      return error.what();
    }
    return "";
  }

  TempFolder folder_;
};

TEST_F(FilePatternPictures, StandInNaturalOrder) {
  EXPECT_THAT(named({"left_*.png"}), ElementsAre("left_9.png", "left_10.png"));
}

TEST_F(FilePatternPictures, AFolderStandsForItsPicturesOnly) {
  EXPECT_THAT(named({"."}), ElementsAre("left_9.png", "left_10.png", "right_9.png"));
  EXPECT_THAT(named({"cam0"}), ElementsAre("cam0/1.PNG"));
}

TEST_F(FilePatternPictures, PatternsReachIntoFolders) {
  EXPECT_THAT(named({"cam?/*"}), ElementsAre("cam0/1.PNG"));
  EXPECT_THAT(named({"**/2.*"}), ElementsAre("cam0/deep/2.jpg"));
  EXPECT_THAT(named({"**/left_9.png"}), ElementsAre("left_9.png"));
}

TEST_F(FilePatternPictures, APictureThatIsNamedTwiceCountsOnce) {
  EXPECT_THAT(named({"left_9.png", "left_*.png"}), ElementsAre("left_9.png", "left_10.png"));
}

TEST_F(FilePatternPictures, AFileNamedLikeAPatternIsItself) {
  folder_.write("a[1].png", "x");
  folder_.write("a1.png", "x");
  EXPECT_THAT(named({"a[1].png"}), ElementsAre("a[1].png"));
}

TEST_F(FilePatternPictures, NamesOfAnyBytesAreFound) {
  folder_.write("odd \n\xff'.png", "x");
  EXPECT_THAT(named({"odd*"}), ElementsAre("odd \n\xff'.png"));
}

TEST_F(FilePatternPictures, RefusesWhatNamesNone) {
  EXPECT_THAT(refusal({"nothing_*.png"}), HasSubstr("nothing_*.png: no left picture fits this pattern"));
  EXPECT_THAT(refusal({"nothing.png"}), HasSubstr("nothing.png: there is no such picture or folder (left)"));
  EXPECT_THAT(refusal({}), HasSubstr("no left pictures are named"));
  std::filesystem::create_directory(folder_.path() / "empty");
  EXPECT_THAT(refusal({"empty"}), HasSubstr("empty: the folder of the left pictures holds no picture"));
}

}  // namespace
