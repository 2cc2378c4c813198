#include "platform/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <iterator>

#include "support/CommaLocale.h"
#include "support/TempFolder.h"

namespace {

struct FolderCase {
  const char* path;
  const char* folder;
};

class FilesFolderOf : public testing::TestWithParam<FolderCase> {};

TEST_P(FilesFolderOf, IsTheTextBeforeTheLastSeparator) {
  EXPECT_EQ(files::folderOf(GetParam().path), GetParam().folder);
}

INSTANTIATE_TEST_SUITE_P(Paths, FilesFolderOf,
                         testing::Values(FolderCase{"a\\b\\list.txt", "a\\b"}, FolderCase{"list.txt", "list.txt"},
                                         FolderCase{"", ""}, FolderCase{"a\\", "a"}, FolderCase{"\\list.txt", ""}));

struct SplitCase {
  const char* path;
  const char* folder;
  const char* base;
  const char* extension;
};

class FilesSplitPath : public testing::TestWithParam<SplitCase> {};

TEST_P(FilesSplitPath, GivesThreePieces) {
  const files::SplitName split = files::SplitPath(GetParam().path);
  EXPECT_EQ(split.folder, GetParam().folder);
  EXPECT_EQ(split.base, GetParam().base);
  EXPECT_EQ(split.extension, GetParam().extension);
}

INSTANTIATE_TEST_SUITE_P(Paths, FilesSplitPath,
                         testing::Values(SplitCase{"D:\\data\\list.txt", "D:\\data", "list", "txt"},
                                         SplitCase{"list.txt", ".\\", "list", "txt"},
                                         SplitCase{"a.b\\list", "a.b", "list", ""},
                                         SplitCase{"a\\x.tar.gz", "a", "x.tar", "gz"},
                                         SplitCase{"a\\.hidden", "a", "", "hidden"}, SplitCase{"", ".\\", "", ""},
                                         SplitCase{"a\\", "a", "", ""}));

TEST(FilesExtensionOf, IsBehindTheLastDotOfTheWholePath) {
  EXPECT_EQ(files::extensionOf("calib.tar.json"), "json");
  EXPECT_EQ(files::extensionOf("calib"), "");
  EXPECT_EQ(files::extensionOf("calib."), "");
  EXPECT_EQ(files::extensionOf("a.b\\calib"), "b\\calib");
}

#if !defined(_WIN32)
TEST(FilesFolderOf, TakesTheLastSeparatorOfEitherKind) {
  EXPECT_EQ(files::folderOf("/data/set/list.txt"), "/data/set");
  EXPECT_EQ(files::folderOf("/data\\set/list.txt"), "/data\\set");
  EXPECT_EQ(files::folderOf("/data/set\\list.txt"), "/data/set");
}

TEST(FilesSplitPath, TakesTheLastSeparatorOfEitherKind) { EXPECT_EQ(files::SplitPath("/data/l.txt").folder, "/data"); }

TEST(FilesNativePath, HasTheSystemsSeparators) { EXPECT_EQ(files::nativePath("a\\b/c\\\\d"), "a/b/c//d"); }
#endif

TEST(FilesExists, KnowsFilesAndFoldersByEitherSeparator) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.path() / "sub");
  folder.write("sub/there.txt", "");
  EXPECT_TRUE(files::exists(folder.file("sub")));
  EXPECT_TRUE(files::exists(folder.path().string() + "\\sub\\there.txt"));
  EXPECT_FALSE(files::exists(folder.file("gone.txt")));
  EXPECT_FALSE(files::exists(folder.file("sub/there.txt/below")));
  EXPECT_FALSE(files::exists(""));
}

TEST(FilesExists, AStatusThatCannotBeToldIsAnErrorOfThatName) {
  try {
    files::exists(std::string(100000, 'x'));
    FAIL() << "no exception";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_THAT(error.what(), testing::HasSubstr("exists"));
    EXPECT_NE(error.code().value(), 0);
  }
}

TEST(FilesMakeFolder, MakesOneLevel) {
  const TempFolder folder;
  EXPECT_EQ(files::MakeFolder(folder.path().string() + "\\result"), 0);
  EXPECT_TRUE(std::filesystem::is_directory(folder.path() / "result"));
}

TEST(FilesMakeFolder, WhatIsThereAlreadyIsSuccess) {
  const TempFolder folder;
  EXPECT_EQ(files::MakeFolder(folder.path().string()), 0);
  EXPECT_EQ(files::MakeFolder(folder.write("file", "")), 0);
}

TEST(FilesMakeFolder, NeedsTheParent) {
  const TempFolder folder;
  EXPECT_NE(files::MakeFolder(folder.file("a/b")), 0);
  EXPECT_FALSE(folder.has("a"));
}

TEST(FilesMakeFolder, APathWithBlanksMakesTheWrongFolders) {
  const TempFolder folder;
  const std::string second = folder.file("second");
  EXPECT_EQ(files::MakeFolder(folder.file("first") + "  " + second), 0);
  EXPECT_TRUE(folder.has("first"));
  EXPECT_TRUE(folder.has("second"));
  EXPECT_FALSE(folder.has("first  " + second));
}

TEST(FilesMakeFolder, ATabIsABlankToo) {
  const TempFolder folder;
  EXPECT_EQ(files::MakeFolder(folder.file("first") + "\t" + folder.file("second")), 0);
  EXPECT_TRUE(folder.has("first"));
  EXPECT_TRUE(folder.has("second"));
}

TEST(FilesMakeFolder, APathWithBlanksThatIsThereIsSuccess) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.path() / "my data");
  EXPECT_EQ(files::MakeFolder(folder.file("my data")), 0);
  EXPECT_FALSE(folder.has("my"));
}

TEST(FilesMakeFolder, OneFailingWordIsFailureAndTheOthersAreMade) {
  const TempFolder folder;
  EXPECT_NE(files::MakeFolder(folder.file("none/x") + " " + folder.file("made")), 0);
  EXPECT_TRUE(folder.has("made"));
}

TEST(FilesMakeFolder, AWordThatIsThereAlreadyIsFailure) {
  const TempFolder folder;
  EXPECT_NE(files::MakeFolder(folder.path().string() + " " + folder.file("made")), 0);
  EXPECT_TRUE(folder.has("made"));
}

TEST(FilesMakeFolder, NoWordIsFailure) {
  EXPECT_NE(files::MakeFolder(""), 0);
  EXPECT_NE(files::MakeFolder("  "), 0);
}

TEST(FilesMakeFolder, NoCharacterStartsAnything) {
  const TempFolder folder;
  EXPECT_EQ(files::MakeFolder(folder.file("a;touch$(touch") + " " + folder.file("b)`&|")), 0);
  EXPECT_TRUE(folder.has("a;touch$(touch"));
  EXPECT_TRUE(folder.has("b)`&|"));
}

TEST(FilesOpenInput, ReadsThroughBackslashesAndInTheClassicLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  folder.write("n.txt", "1234.5");
  std::ifstream stream = files::openInput(folder.path().string() + "\\n.txt");
  ASSERT_TRUE(stream.is_open());
  double value = 0.0;
  stream >> value;
  EXPECT_EQ(value, 1234.5);
}

TEST(FilesOpenInput, WhatDoesNotOpenStaysFailed) {
  const TempFolder folder;
  for (const std::string& path :
       {std::string(), folder.file("gone"), folder.path().string(), std::string(100000, 'x')}) {
    std::ifstream stream = files::openInput(path);
    EXPECT_FALSE(stream.is_open());
    EXPECT_TRUE(stream.fail());
    EXPECT_EQ(std::distance(std::istreambuf_iterator<char>(stream), {}), 0);
  }
}

/// The system opens its own memory as a file, and cannot read the start of it.
TEST(FilesOpenInput, AReadThatFailsIsAnExceptionAndNoEnd) {
  std::ifstream stream = files::openInput("/proc/self/mem");
  ASSERT_TRUE(stream.is_open());
  std::string line;
  EXPECT_THROW(std::getline(stream, line), std::ios_base::failure);
}

TEST(FilesOpenOutput, WritesThroughBackslashesAndInTheClassicLocale) {
  const CommaLocale comma;
  const TempFolder folder;
  files::openOutput(folder.path().string() + "\\n.txt") << 1234567 << ' ' << 0.5;
  EXPECT_EQ(folder.read("n.txt"), "1234567 0.5");
}

TEST(FilesOpenOutput, ReplacesOrAppendsAsTheModeSays) {
  const TempFolder folder;
  folder.write("n.txt", "old");
  files::openOutput(folder.file("n.txt"), std::ios::app) << "er";
  EXPECT_EQ(folder.read("n.txt"), "older");
  files::openOutput(folder.file("n.txt")) << "new";
  EXPECT_EQ(folder.read("n.txt"), "new");
}

TEST(FilesOpenOutput, WhatDoesNotOpenStaysFailed) {
  const TempFolder folder;
  for (const std::string& path : {std::string(), folder.file("none/x"), folder.path().string()}) {
    EXPECT_TRUE(files::openOutput(path).fail());
  }
}

TEST(FilesReadBytes, GivesEveryByte) {
  const TempFolder folder;
  std::string content(40000, '\0');
  for (std::size_t k = 0; k < content.size(); ++k) content[k] = static_cast<char>(k % 251);
  std::vector<std::uint8_t> bytes = {1, 2, 3};
  folder.write("b", content);
  ASSERT_EQ(files::readBytes(folder.path().string() + "\\b", 50000, bytes), 0);
  EXPECT_EQ(std::string(bytes.begin(), bytes.end()), content);
}

#if !defined(_WIN32)
TEST(FilesReadBytes, AFileWithABackslashInItsNameCannotBeReached) {
  const TempFolder folder;
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(files::readBytes(folder.write("a\\b", "content"), 50000, bytes), ENOENT);
}
#endif

TEST(FilesReadBytes, TakesNoMoreThanItIsToldTo) {
  const TempFolder folder;
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(files::readBytes(folder.write("b", "abcd"), 3, bytes), 0);
  EXPECT_EQ(bytes, (std::vector<std::uint8_t>{'a', 'b', 'c'}));
}

TEST(FilesReadBytes, AnEmptyFileHasNoBytes) {
  const TempFolder folder;
  std::vector<std::uint8_t> bytes = {1};
  EXPECT_EQ(files::readBytes(folder.write("b", ""), 50000, bytes), 0);
  EXPECT_TRUE(bytes.empty());
}

TEST(FilesReadBytes, TellsTheErrorOfTheOpen) {
  const TempFolder folder;
  std::vector<std::uint8_t> bytes;
  EXPECT_EQ(files::readBytes(folder.file("gone"), 50000, bytes), ENOENT);
  EXPECT_EQ(files::readBytes(folder.path().string(), 50000, bytes), EISDIR);
  EXPECT_EQ(files::readBytes(folder.write("b", "") + "/below", 50000, bytes), ENOTDIR);
}

TEST(FilesImages, KeepTheirPixelsThroughAFile) {
  const TempFolder folder;
  const cv::Mat image = (cv::Mat_<std::uint16_t>(1, 3) << 7, 1023, 65535);
  ASSERT_TRUE(files::writeImage(folder.path().string() + "\\i.png", image));
  const cv::Mat read = files::readImage(folder.path().string() + "\\i.png");
  ASSERT_EQ(read.type(), CV_16UC1);
  EXPECT_EQ(cv::norm(image, read, cv::NORM_INF), 0.0);
}

TEST(FilesImages, WhatIsNoImageIsEmpty) {
  const TempFolder folder;
  EXPECT_TRUE(files::readImage(folder.file("gone.png")).empty());
  EXPECT_TRUE(files::readImage(folder.write("text.png", "no image")).empty());
}

TEST(FilesImages, AFolderThatIsNotThereIsAFailedWrite) {
  const TempFolder folder;
  EXPECT_FALSE(files::writeImage(folder.file("none/i.png"), cv::Mat::zeros(2, 2, CV_8UC1)));
}

}  // namespace
