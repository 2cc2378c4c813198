#include "check/run/OutFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "polarline/errors.h"
#include "support/FolderContents.h"
#include "support/FullDevice.h"
#include "support/TempFolder.h"

namespace polarline {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
namespace fs = std::filesystem;

struct OutFolderIn : ::testing::Test {
  TempFolder folder;
  PolarConfig config;

  static void put(const std::string& place, const std::string& name, const std::string& content) {
    fs::create_directories((fs::path(place) / name).parent_path());
    std::ofstream(fs::path(place) / name) << content;
  }
};

TEST_F(OutFolderIn, NoPlaceWritesNothing) {
  OutFolder out("");
  EXPECT_EQ(out.resultFolder(config), "");
  out.commit();
}

TEST_F(OutFolderIn, AppearsWithTheCommitOnly) {
  const std::string place = folder.file("new one");
  {
    OutFolder out(place);
    const std::string partial = out.resultFolder(config);
    EXPECT_EQ(fs::path(partial).parent_path(), folder.path());
    put(partial, "a.csv", "1");
    put(partial, "sub/b.csv", "2");
    EXPECT_FALSE(fs::exists(place));
    out.commit();
  }
  EXPECT_THAT(contentsOf(folder.path()), ElementsAre(Pair("new one/a.csv", "1"), Pair("new one/sub/b.csv", "2")));
}

TEST_F(OutFolderIn, LeavesNothingWithoutACommit) {
  {
    OutFolder out(folder.file("new"));
    put(out.resultFolder(config), "a.csv", "1");
  }
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(OutFolderIn, ReplacesFilesAndNumbersSummaries) {
  const std::string place = folder.file("there");
  put(place, "0_dy.csv", "old");
  put(place, "kept.txt", "kept");
  put(place, "align_data_0.csv", "first");
  put(place, "align_data_2.csv", "third");
  for (const char* run : {"second", "fourth"}) {
    OutFolder out(place + "/");
    put(out.resultFolder(config), "align_data_0.csv", run);
    put(out.resultFolder(config), "0_dy.csv", "new");
    out.commit();
  }
  EXPECT_THAT(contentsOf(place), ElementsAre(Pair("0_dy.csv", "new"), Pair("align_data_0.csv", "first"),
                                             Pair("align_data_1.csv", "second"), Pair("align_data_2.csv", "third"),
                                             Pair("align_data_3.csv", "fourth"), Pair("kept.txt", "kept")));
}

TEST_F(OutFolderIn, HasTheFoldersOfThePictures) {
  OutFolder out(folder.file("new"));
  const std::string partial = out.resultFolder(config);
  EXPECT_FALSE(fs::exists(fs::path(partial) / "result"));
  config.savepolarline = 1;
  out.resultFolder(config);
  for (const char* name : {"result", "result_left", "result_right"}) EXPECT_TRUE(fs::exists(fs::path(partial) / name));
}

TEST_F(OutFolderIn, MakesTheFoldersAbove) {
  OutFolder out(folder.file("a/b/c"));
  put(out.resultFolder(config), "x", "1");
  out.commit();
  EXPECT_EQ(folder.read("a/b/c/x"), "1");
}

TEST_F(OutFolderIn, IsRefusedWhereItCannotBe) {
  EXPECT_THROW(OutFolder(folder.write("file", "x")), OutputError);
  EXPECT_THROW(OutFolder(folder.file("file") + "/below"), OutputError);
  EXPECT_THROW(OutFolder(folder.file("back\\slash")), InputError);
}

TEST_F(OutFolderIn, TellsOfAFullDeviceByItsOwnName) {
  const std::string place = folder.file("new");
  {
    OutFolder out(place);
    const std::string partial = out.resultFolder(config);
    {
      const FullDevice full;
      files::OutputFile(partial + "\\0_dy.csv") << "1";
    }
    try {
      out.commit();
      FAIL();
    } catch (const OutputError& error) {
      EXPECT_THAT(error.what(), ::testing::StartsWith(place + ": "));
    }
  }
  EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(OutFolderIn, MovesNoFileWhereOneCannotGo) {
  fs::create_directories(folder.file("there/b.csv"));
  {
    OutFolder out(folder.file("there"));
    const std::string partial = out.resultFolder(config);
    for (const char* name : {"a.csv", "b.csv", "c.csv"}) put(partial, name, "1");
    EXPECT_THROW(out.commit(), OutputError);
  }
  EXPECT_FALSE(folder.has("there/a.csv"));
  EXPECT_FALSE(folder.has("there/c.csv"));
}

}  // namespace
}  // namespace polarline
