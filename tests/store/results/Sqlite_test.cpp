#include "store/results/Sqlite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "polarline/errors.h"
#include "support/TempFolder.h"

namespace {

using sqlite::Access;
using sqlite::Database;
using sqlite::Statement;
using sqlite::Transaction;
using ::testing::HasSubstr;

struct SqliteFile : ::testing::Test {
  TempFolder folder;
  std::string path = folder.file("r.sqlite");

  template <typename Error, typename Work>
  static std::string problemOf(Work work) {
    try {
      work();
    } catch (const Error& error) {
      return error.what();
    }
    return "nothing of that kind was thrown";
  }
};

TEST_F(SqliteFile, KeepsWhatIsBoundAsItIs) {
  const Database database(path, Access::kWrite);
  database.run("CREATE TABLE t(a, b, c, d, e, f, g, h)");
  const std::string text("x\0y", 3);
  Statement add(database, "INSERT INTO t VALUES (?, ?, ?, ?, ?, ?, ?, ?)");
  add.run(std::int64_t{1} << 62U, -0.1, text, std::string_view{}, std::numeric_limits<double>::quiet_NaN(),
          std::numeric_limits<double>::infinity(), std::optional<int>(), true);
  Statement row(database, "SELECT * FROM t");
  ASSERT_TRUE(row.step());
  EXPECT_EQ(row.integer(0), std::int64_t{1} << 62U);
  EXPECT_EQ(row.real(1), -0.1);
  EXPECT_EQ(row.text(2), text);
  EXPECT_FALSE(row.isNull(3)) << "an empty text is one";
  EXPECT_EQ(row.text(3), "");
  for (const int none : {4, 5, 6}) EXPECT_TRUE(row.isNull(none)) << none;
  EXPECT_EQ(row.text(4), "");
  EXPECT_EQ(row.real(4), 0.0);
  EXPECT_EQ(row.integer(7), 1);
  EXPECT_EQ(row.columns(), 8);
  EXPECT_FALSE(row.step());
}

TEST_F(SqliteFile, AnswersWithTheFirstValueOrNone) {
  const Database database(path, Access::kWrite);
  database.run("CREATE TABLE t(a); INSERT INTO t VALUES (5); INSERT INTO t VALUES (6)");
  EXPECT_EQ(database.integer("SELECT a FROM t ORDER BY a"), 5);
  EXPECT_EQ(database.text("SELECT 'w' || a FROM t ORDER BY a"), "w5");
  EXPECT_EQ(database.integer("SELECT a FROM t WHERE a = 0"), 0);
  EXPECT_EQ(database.text("SELECT a FROM t WHERE a = 0"), "");
  EXPECT_EQ(database.lastRow(), 2);
}

TEST_F(SqliteFile, ATransactionIsWrittenAsAWholeOrNotAtAll) {
  const Database database(path, Access::kWrite);
  database.run("CREATE TABLE t(a)");
  {
    Transaction lost(database);
    database.run("INSERT INTO t VALUES (1)");
  }
  EXPECT_EQ(database.integer("SELECT count(*) FROM t"), 0);
  {
    Transaction kept(database);
    database.run("INSERT INTO t VALUES (1)");
    kept.commit();
  }
  EXPECT_EQ(Database(path, Access::kRead).integer("SELECT count(*) FROM t"), 1);
}

TEST_F(SqliteFile, TakesItsNameForAPathWhateverItLooksLike) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  for (const char* name : {":memory:", "file:a?mode=memory"}) {
    Database(name, Access::kWrite).run("CREATE TABLE t(a)");
    EXPECT_TRUE(folder.has(name)) << name;
    EXPECT_EQ(Database(name, Access::kReadFixed).integer("SELECT count(*) FROM t"), 0);
  }
  std::filesystem::current_path(before);
}

TEST_F(SqliteFile, ThatCanNotBeOpenedIsAnInputToReadAndAnOutputToWrite) {
  const std::string none = folder.file("none/r.sqlite");
  EXPECT_THAT(problemOf<polarline::InputError>([&] { Database(none, Access::kRead); }), HasSubstr(none));
  EXPECT_THAT(problemOf<polarline::OutputError>([&] { Database(none, Access::kWrite); }), HasSubstr(none));
}

TEST_F(SqliteFile, SaysWhatIsWrongWithAStatement) {
  const Database database(path, Access::kWrite);
  EXPECT_THAT(problemOf<polarline::OutputError>([&] { database.run("INSERT INTO none VALUES (1)"); }),
              HasSubstr("no such table: none"));
  EXPECT_THAT(problemOf<polarline::OutputError>([&] { Statement(database, "SELECT a FROM none"); }), HasSubstr(path));
  database.run("CREATE TABLE t(a UNIQUE)");
  Statement add(database, "INSERT INTO t VALUES (?)");
  add.run(1);
  EXPECT_THAT(problemOf<polarline::OutputError>([&] { add.run(1); }), HasSubstr("UNIQUE"));
}

TEST_F(SqliteFile, IsRefusedWhereItIsNoneOrDamaged) {
  folder.write("r.sqlite", std::string(4096, 'x'));
  EXPECT_THAT(problemOf<polarline::InputError>([&] { Database(path, Access::kRead).integer("PRAGMA user_version"); }),
              HasSubstr("is no SQLite file"));

  const std::string damaged = folder.file("damaged.sqlite");
  {
    const Database database(damaged, Access::kWrite);
    database.run(
        "CREATE TABLE t(a); WITH RECURSIVE n(k) AS (SELECT 1 UNION ALL SELECT k + 1 FROM n WHERE k < 3000) "
        "INSERT INTO t SELECT 'row ' || k FROM n");
  }
  std::string bytes = folder.read("damaged.sqlite");
  ASSERT_GT(bytes.size(), 20000U);
  bytes.replace(4096, 8192, std::string(8192, '\x77'));  // The table's first pages; the head stays.
  folder.write("damaged.sqlite", bytes);
  EXPECT_THAT(
      problemOf<polarline::InputError>([&] { Database(damaged, Access::kRead).integer("SELECT count(*) FROM t"); }),
      HasSubstr("is damaged"));
}

}  // namespace
