#include "Tallowfen/src/board/StorageFile.h"

#include <gtest/gtest.h>

#include <system_error>

#include "MorvenKit/ErrorCategories.h"
#include "tests/support/TempFolder.h"

namespace {

using kestrune::isStorageFile;
using kestrune::openStorage;

TEST(StorageFileName, FourEndingsInSmallLetters) {
  for (const char* path : {"a.json", "a.xml", "a.yml", "a.yaml", "a.b.yml", "folder\\a.json", "/x.y/a.xml"}) {
    EXPECT_TRUE(isStorageFile(path)) << path;
  }
}

TEST(StorageFileName, NothingElse) {
  for (const char* path : {"a.JSON", "a.Yml", "a.ini", "a.txt", "json", "a.json.gz", "a.yml ", "a.", "", "a.jsonx"}) {
    EXPECT_FALSE(isStorageFile(path)) << path;
  }
}

TEST(StorageFileOpened, AMissingFileDoesNotOpen) {
  const TempFolder folder;
  cv::FileStorage storage;
  EXPECT_FALSE(openStorage(storage, folder.file("none.yml"), cv::FileStorage::READ, "text"));
}

TEST(StorageFileOpened, TheLibrarysExceptionBecomesNotAccessible) {
  const TempFolder folder;
  cv::FileStorage storage;
  try {
    openStorage(storage, folder.write("bad.json", "{ \"a\": [1, \n"), cv::FileStorage::READ, "operation");
    FAIL() << "no exception";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code(), make_error_code(kestrune::morvenkit::DetectorErrc::kFileNotAccessible));
    EXPECT_EQ(std::string(error.what()), "operation: file not accessible");
  }
}

TEST(StorageFileOpened, DocumentOfNothingButBracketsIsNotAccessible) {
  const TempFolder folder;
  cv::FileStorage storage;
  const std::string path = folder.write("deep.yml", "%YAML:1.0\n---\na: " + std::string(200000, '['));
  EXPECT_THROW(openStorage(storage, path, cv::FileStorage::READ, "operation"), std::system_error);
}

TEST(StorageFileOpened, FileOfTheNameInFrontOfAQuestionMarkIsLeftAlone) {
  const TempFolder folder;
  folder.write("a", "kept");
  cv::FileStorage storage;
  EXPECT_FALSE(openStorage(storage, folder.file("a?b.json"), cv::FileStorage::WRITE, "text"));
  EXPECT_EQ(folder.read("a"), "kept");
}

TEST(StorageFileOpened, TakesThePathsOwnSeparator) {
  const TempFolder folder;
  folder.write("a.json", "{ \"a\": 1 }");
  cv::FileStorage storage;
  EXPECT_TRUE(openStorage(storage, folder.path().string() + "\\a.json", cv::FileStorage::READ, "text"));
}

}  // namespace
