#include "store/results/Schema.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "polarline/errors.h"
#include "store/MadeStore.h"
#include "support/Places.h"
#include "support/Unprivileged.h"

namespace {

using polarline::results::kResultsSchema;
using polarline::results::openResultsToRead;
using polarline::results::openResultsToWrite;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

struct Schema : ::testing::Test {
  made_store::Results results;

  void refused(const std::string& words) const {
    const std::string before = TempFolder::contentOf(results.path());
    try {
      openResultsToWrite(results.path());
      ADD_FAILURE() << words;
    } catch (const polarline::InputError& error) {
      EXPECT_THAT(error.what(), HasSubstr(words));
    }
    EXPECT_EQ(TempFolder::contentOf(results.path()), before) << "is left alone";
  }
};

/// Tables, columns, indices and views, by their texts.
std::vector<std::string> schemaOf(const made_store::Results& results) {
  return results.rows(
      "SELECT type, name, sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_stat%' ORDER BY type, name");
}

TEST_F(Schema, OfANewFileHasTheCurrentVersionAndAWriteAheadLog) {
  openResultsToWrite(results.path());
  EXPECT_EQ(results.one("PRAGMA user_version"), std::to_string(kResultsSchema));
  EXPECT_EQ(results.one("PRAGMA application_id"), std::to_string(0x504C5253));
  EXPECT_EQ(results.one("PRAGMA journal_mode"), "wal");
}

TEST_F(Schema, HasStrictTablesOnly) {
  openResultsToWrite(results.path());
  EXPECT_EQ(
      results.one(
          "SELECT count(*) FROM pragma_table_list WHERE type = 'table' AND name NOT LIKE 'sqlite_%' AND NOT strict"),
      "0");
  EXPECT_EQ(results.one("SELECT count(*) FROM pragma_table_list WHERE type = 'table' AND name NOT LIKE 'sqlite_%'"),
            "13");
}

TEST_F(Schema, HoldsTheRowsToTheirSets) {
  const auto database = openResultsToWrite(results.path());
  EXPECT_THROW(database->run("INSERT INTO limits VALUES (7, 0, 'dy_means<=1', 0.5, 1, 0)"), polarline::OutputError);
}

/// Files as earlier versions left them; a version that is new needs one of the version before.
class SchemaEarlier : public ::testing::TestWithParam<int> {};

TEST_P(SchemaEarlier, IsBroughtToTheCurrentOneWithAllItsSets) {
  const made_store::Results results, fresh;
  const std::string dump = TempFolder::contentOf(
      places::inProject("tests/store/results/earlier/version_" + std::to_string(GetParam()) + ".sql"));
  results.run(dump);
  ASSERT_EQ(results.one("PRAGMA user_version"), std::to_string(GetParam()));
  const auto sets = results.rows("SELECT * FROM sets ORDER BY id");
  const auto figures = results.rows("SELECT * FROM figures ORDER BY 1, 2, 3");
  ASSERT_GT(figures.size(), 50U);
  EXPECT_THROW(openResultsToRead(results.path()), polarline::InputError);

  openResultsToWrite(results.path());
  openResultsToWrite(fresh.path());
  EXPECT_EQ(results.one("PRAGMA user_version"), std::to_string(kResultsSchema));
  EXPECT_EQ(schemaOf(results), schemaOf(fresh));
  EXPECT_EQ(results.rows("SELECT * FROM sets ORDER BY id"), sets);
  EXPECT_EQ(results.rows("SELECT * FROM figures ORDER BY 1, 2, 3"), figures);
  EXPECT_THAT(results.rows("PRAGMA foreign_key_check"), IsEmpty());
  EXPECT_THAT(results.rows("SELECT text, figure, comparison, bound FROM limit_rules ORDER BY text"),
              ::testing::ElementsAre("dy_means<=0.8|dy_means|<=|0.8", "|tri_dis[0]|<=1.5|tri_dis[0]|<=|1.5"));
  openResultsToRead(results.path());
}

INSTANTIATE_TEST_SUITE_P(Versions, SchemaEarlier, ::testing::Range(1, kResultsSchema));

TEST_F(Schema, RefusesANewerOne) {
  openResultsToWrite(results.path());
  results.run("PRAGMA user_version = " + std::to_string(kResultsSchema + 1) + "; CREATE TABLE unknown(a)");
  refused("is of schema " + std::to_string(kResultsSchema + 1));
  EXPECT_THROW(openResultsToRead(results.path()), polarline::InputError);
}

TEST_F(Schema, RefusesAnotherProgramsFile) {
  results.run("CREATE TABLE theirs(a)");
  refused("is an SQLite file of something else");
}

TEST_F(Schema, RefusesWhatIsNoDatabase) {
  std::ofstream(results.path()) << "{\"schema\": \"polarline-check/1\"}" << std::string(2000, ' ');
  refused("is no SQLite file");
  EXPECT_THROW(openResultsToRead(results.path()), polarline::InputError);
}

TEST_F(Schema, SaysWhereThereIsNothingToRead) {
  EXPECT_THROW(openResultsToRead(results.path()), polarline::InputError);
  EXPECT_FALSE(std::filesystem::exists(results.path()));
}

/// A name in which everything stands that would mean something in a URI.
struct SchemaFixedFolder : ::testing::Test {
  TempFolder folder;
  made_store::Store store;
  std::string inner = folder.file("50%3f a?b#c");
  std::string path = inner + "/r.sqlite";

  SchemaFixedFolder() {
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    std::filesystem::create_directory(inner);
    store.add(made_store::name(1), made_store::check({0.05}));
    polarline::merge({store.path()}, path);
  }
  void close() const { std::filesystem::permissions(inner, static_cast<std::filesystem::perms>(0555)); }
};

TEST_F(SchemaFixedFolder, IsReadAndStaysAsItIs) {
  close();
  const Unprivileged nobody;
  EXPECT_EQ(openResultsToRead(path)->integer("SELECT count(*) FROM sets"), 1);
  for (const auto& entry : std::filesystem::directory_iterator(inner)) EXPECT_EQ(entry.path(), path);
}

TEST_F(SchemaFixedFolder, IsNotReadWithoutWhatStandsInItsLog) {
  std::ofstream(path + "-wal") << "changes";
  close();
  const Unprivileged nobody;
  try {
    openResultsToRead(path);
    FAIL();
  } catch (const polarline::InputError& error) {
    EXPECT_THAT(error.what(), HasSubstr("has a log of changes beside it"));
  }
}

TEST_F(Schema, SaysThatAFolderThatIsNotThereCantBeWritten) {
  EXPECT_THROW(openResultsToWrite(results.path() + "/none/r.sqlite"), polarline::OutputError);
}

TEST_F(Schema, IsFinishedBesideAnotherWriter) {
  const auto database = openResultsToWrite(results.path());
  database->run(
      "WITH RECURSIVE n(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM n WHERE k < 1000) "
      "INSERT INTO stores(path) SELECT 'store ' || k FROM n");
  database->integer("SELECT count(*) FROM documents d JOIN stores s ON s.id = d.store WHERE s.path > 'store 5'");
  const auto other = openResultsToWrite(results.path());
  auto held = std::make_unique<sqlite::Transaction>(*other);
  other->run("INSERT INTO stores(path) VALUES ('another')");
  std::thread release([&held] {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    held->commit();
  });
  EXPECT_NO_THROW(polarline::results::finishWriting(*database));
  release.join();
  EXPECT_EQ(database->integer("SELECT count(*) FROM sqlite_master WHERE name = 'sqlite_stat1'"), 1)
      << "there was something to tell";
  EXPECT_EQ(std::filesystem::file_size(results.path() + "-wal"), 0U);
}

}  // namespace
