#include "store/results/Sqlite.h"

#include <sqlite3.h>

#include <chrono>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "polarline/errors.h"

namespace sqlite {
namespace {

/// Another merge holds the file for the time of a few hundred documents, a reader never.
constexpr std::chrono::milliseconds kPatience{120000};

/// As a path, not as the URI or the name of a memory that SQLite might read into it.
std::string plainPath(const std::string& path) { return path.starts_with("/") ? path : "./" + path; }

/// The URI of a file that does not change, which only a URI can say; what has a meaning in one is written by its
/// number.
std::string fixedUri(const std::string& path) {
  std::string uri = "file:";
  for (const char c : plainPath(path)) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    if (c != '%' && c != '?' && c != '#') {
      uri += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    uri += {'%', kDigits[byte / kDigits.size()], kDigits[byte % kDigits.size()]};
  }
  return uri + "?immutable=1";
}

int flagsOf(Access access) {
  constexpr int kAll = SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  if (access == Access::kWrite) return kAll | SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  return kAll | SQLITE_OPEN_READONLY | (access == Access::kReadFixed ? SQLITE_OPEN_URI : 0);
}

}  // namespace

Database::Database(const std::string& path, Access access) : path_(path) {
  const std::string opened = access == Access::kReadFixed ? fixedUri(path) : plainPath(path);
  if (sqlite3_open_v2(opened.c_str(), &handle_, flagsOf(access), nullptr) != SQLITE_OK) {
    const std::string reason = handle_ == nullptr ? "no memory" : sqlite3_errmsg(handle_);
    sqlite3_close(handle_);
    if (access == Access::kWrite) throw polarline::OutputError(path, reason);
    throw polarline::InputError(path, reason);
  }
  sqlite3_busy_timeout(handle_, static_cast<int>(kPatience.count()));
}

Database::~Database() { sqlite3_close(handle_); }

void Database::fail() const {
  const std::string reason = sqlite3_errmsg(handle_);
  switch (sqlite3_errcode(handle_) & 0xFF) {
    case SQLITE_NOTADB:
      throw polarline::InputError(path_, "is no SQLite file; a results file of 'polarline merge' was wanted");
    case SQLITE_CORRUPT:
      throw polarline::InputError(path_, "is damaged (" + reason + "); merge the stores into a new file");
    default:
      throw polarline::OutputError(path_, reason);
  }
}

void Database::run(const std::string& sql) const {
  if (sqlite3_exec(handle_, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) fail();
}

std::int64_t Database::integer(const std::string& sql) const {
  Statement statement(*this, sql);
  return statement.step() ? statement.integer(0) : 0;
}

std::string Database::text(const std::string& sql) const {
  Statement statement(*this, sql);
  return statement.step() ? statement.text(0) : std::string();
}

std::int64_t Database::lastRow() const { return sqlite3_last_insert_rowid(handle_); }

void Statement::Finish::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

Statement::Statement(const Database& database, const std::string& sql) : database_(&database) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database.handle(), sql.c_str(), static_cast<int>(sql.size() + 1), &statement, nullptr) !=
      SQLITE_OK)
    database.fail();
  statement_.reset(statement);
}

void Statement::reset() { sqlite3_reset(statement_.get()); }

bool Statement::step() {
  const int result = sqlite3_step(statement_.get());
  if (result != SQLITE_ROW && result != SQLITE_DONE) database_->fail();
  return result == SQLITE_ROW;
}

std::int64_t Statement::integer(int column) const { return sqlite3_column_int64(statement_.get(), column); }

double Statement::real(int column) const { return sqlite3_column_double(statement_.get(), column); }

std::string Statement::text(int column) const {
  const unsigned char* const bytes = sqlite3_column_text(statement_.get(), column);
  if (bytes == nullptr) return {};
  return {reinterpret_cast<const char*>(bytes),
          static_cast<std::size_t>(sqlite3_column_bytes(statement_.get(), column))};
}

bool Statement::isNull(int column) const { return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL; }

int Statement::columns() const { return sqlite3_column_count(statement_.get()); }

void Statement::set(int place, std::int64_t value) { sqlite3_bind_int64(statement_.get(), place, value); }

void Statement::set(int place, double value) {
  if (std::isfinite(value))
    sqlite3_bind_double(statement_.get(), place, value);
  else
    sqlite3_bind_null(statement_.get(), place);
}

void Statement::set(int place, std::string_view value) {
  // An empty view may have no bytes to point at, which would be NULL.
  sqlite3_bind_text64(statement_.get(), place, value.empty() ? "" : value.data(), value.size(), SQLITE_STATIC,
                      SQLITE_UTF8);
}

void Statement::set(int place, std::nullptr_t) { sqlite3_bind_null(statement_.get(), place); }

Transaction::~Transaction() {
  // Nothing more can be done where even this fails; SQLite rolls back at the next opening.
  if (is_open_) sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void Transaction::commit() {
  database_.run("COMMIT");
  is_open_ = false;
}

}  // namespace sqlite
