#include "store/results/Schema.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <system_error>
#include <thread>

#include "polarline/errors.h"
#include "store/results/SchemaText.h"

namespace polarline::results {
namespace {

/// Version 3 has other views, which are made anew after the last step in any case.
void keepTables(const sqlite::Database& /*database*/) {}

/// The step at place k leads from version k to k + 1.
constexpr std::array<SchemaStep, kResultsSchema> kSteps{makeFirstSchema, addLimitRules, keepTables, addPlaces};

std::int64_t versionOf(const sqlite::Database& database) { return database.integer("PRAGMA user_version"); }

bool isEmpty(const sqlite::Database& database) {
  return database.integer("SELECT count(*) FROM sqlite_master") == 0 && versionOf(database) == 0;
}

/// Throws for a file that is not ours, or newer than this program.
void requireOurs(const sqlite::Database& database) {
  if (database.integer("PRAGMA application_id") != kResultsApplication) {
    throw InputError(database.path(),
                     "is an SQLite file of something else; a results file of 'polarline merge' was wanted");
  }
  if (const std::int64_t version = versionOf(database); version > kResultsSchema) {
    throw InputError(database.path(), fmt::format("is of schema {}; this polarline knows none newer than {}. It was "
                                                  "left alone; a newer polarline reads it",
                                                  version, kResultsSchema));
  }
}

/// Brings the file to the current version. Another process may be doing the same: each looks anew when it is its turn.
void migrate(const sqlite::Database& database) {
  while (isEmpty(database) || versionOf(database) < kResultsSchema) {
    sqlite::Transaction transaction(database);
    if (!isEmpty(database)) requireOurs(database);
    const std::int64_t version = versionOf(database);
    if (version >= kResultsSchema) return;
    kSteps.at(static_cast<std::size_t>(version))(database);
    if (version + 1 == kResultsSchema) makeViews(database);
    database.run(fmt::format("PRAGMA application_id = {}; PRAGMA user_version = {}", kResultsApplication, version + 1));
    transaction.commit();
  }
}

/// Readers don't wait for writers then. Changing over needs the file alone for a moment, for which SQLite does not wait
/// by itself.
void useWriteAheadLog(const sqlite::Database& database) {
  constexpr int kTries = 600;
  constexpr std::chrono::milliseconds kPause{100};
  for (int k = 0;; ++k) {
    try {
      if (database.text("PRAGMA journal_mode = WAL") == "wal") return;
      throw OutputError(database.path(), "its file system has no write-ahead log of SQLite; name a local file");
    } catch (const OutputError&) {
      // Another merge changes the file of old to the log or has just done so; the next try finds it.
      const std::string mode = database.text("PRAGMA journal_mode");
      if (k == kTries || (mode != "delete" && mode != "wal")) throw;
    }
    std::this_thread::sleep_for(kPause);
  }
}

bool isWritable(const std::filesystem::path& folder) {
  return faccessat(AT_FDCWD, folder.empty() ? "." : folder.c_str(), W_OK, AT_EACCESS) == 0;
}

/// SQLite reads a file with a write-ahead log only where it may lay an index of the log beside it. A folder that can't
/// be written has no merge that goes on, so that the file is read as one that does not change; what still stands in a
/// log would be missing then.
sqlite::Access readingOf(const std::string& path) {
  std::error_code ignored;
  if (isWritable(std::filesystem::path(path).parent_path()) || std::filesystem::exists(path + "-shm", ignored))
    return sqlite::Access::kRead;
  if (const auto size = std::filesystem::file_size(path + "-wal", ignored); !ignored && size > 0) {
    throw InputError(path,
                     "has a log of changes beside it that can't be read from a folder that can't be written; copy both "
                     "files to one that can");
  }
  return sqlite::Access::kReadFixed;
}

}  // namespace

std::unique_ptr<sqlite::Database> openResultsToWrite(const std::string& path) {
  auto database = std::make_unique<sqlite::Database>(path, sqlite::Access::kWrite);
  if (!isEmpty(*database)) requireOurs(*database);
  useWriteAheadLog(*database);
  // With a write-ahead log this keeps the file whole through a loss of power; what the log loses is merged again.
  database->run("PRAGMA synchronous = NORMAL; PRAGMA foreign_keys = ON; PRAGMA cache_size = -65536");
  migrate(*database);
  return database;
}

void finishWriting(const sqlite::Database& database) {
  // By itself it reads first and writes then, and SQLite waits for no other writer that late.
  sqlite::Transaction transaction(database);
  database.run("PRAGMA optimize");
  transaction.commit();
  database.run("PRAGMA wal_checkpoint(TRUNCATE)");
}

std::unique_ptr<sqlite::Database> openResultsToRead(const std::string& path) {
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure))
    throw InputError(path, "is no file; a results file of 'polarline merge' was wanted");
  auto database = std::make_unique<sqlite::Database>(path, readingOf(path));
  requireOurs(*database);
  if (const std::int64_t version = versionOf(*database); version < kResultsSchema) {
    throw InputError(path, fmt::format("is of schema {}, {} is wanted: 'polarline merge DIR -o {}' brings it there",
                                       version, kResultsSchema, path));
  }
  database->run("PRAGMA cache_size = -65536; PRAGMA mmap_size = 1073741824");
  return database;
}

}  // namespace polarline::results
