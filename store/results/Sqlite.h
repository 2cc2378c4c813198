#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

/// SQLite as this layer uses it. What fails throws: `polarline::OutputError` where the file could not be written, read
/// or waited for, `polarline::InputError` where it is no database or a damaged one.
namespace sqlite {

enum class Access : std::uint8_t {
  kRead,
  kReadFixed,  ///< Nobody changes the file meanwhile: nothing is locked, and nothing is laid beside it.
  kWrite,
};

class Database {
 public:
  /// Opens a file; for `kWrite` it is made where it is not there. Waits for others that write.
  Database(const std::string& path, Access access);
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;
  ~Database();

  /// Runs statements without results.
  void run(const std::string& sql) const;
  /// A pragma's or query's first value.
  std::int64_t integer(const std::string& sql) const;
  std::string text(const std::string& sql) const;

  std::int64_t lastRow() const;
  const std::string& path() const { return path_; }
  sqlite3* handle() const { return handle_; }

  [[noreturn]] void fail() const;

 private:
  std::string path_;
  sqlite3* handle_ = nullptr;
};

/// A prepared statement. A text that was bound has to live until the next `reset` or `bind`.
class Statement {
 public:
  Statement(const Database& database, const std::string& sql);
  Statement(Statement&&) noexcept = default;

  /// Starts over with these values in place of the marks.
  template <typename... Values>
  Statement& bind(const Values&... values) {
    reset();
    int place = 0;
    (set(++place, values), ...);
    return *this;
  }
  /// Goes to the next row; false behind the last one.
  bool step();
  /// With these values, without a result.
  template <typename... Values>
  void run(const Values&... values) {
    bind(values...);
    while (step()) {
    }
    reset();
  }
  void reset();

  std::int64_t integer(int column) const;
  double real(int column) const;  ///< 0 for NULL.
  std::string text(int column) const;
  bool isNull(int column) const;
  int columns() const;

 private:
  void set(int place, std::int64_t value);
  void set(int place, int value) { set(place, std::int64_t{value}); }
  void set(int place, bool value) { set(place, std::int64_t{value ? 1 : 0}); }
  void set(int place, double value);  ///< NULL for what is not finite.
  void set(int place, std::string_view value);
  void set(int place, const std::string& value) { set(place, std::string_view(value)); }
  void set(int place, const char* value) { set(place, std::string_view(value)); }
  void set(int place, std::nullptr_t);
  template <typename Value>
  void set(int place, const std::optional<Value>& value) {
    if (value)
      set(place, *value);
    else
      set(place, nullptr);
  }

  struct Finish {
    void operator()(sqlite3_stmt* statement) const;
  };
  const Database* database_;
  std::unique_ptr<sqlite3_stmt, Finish> statement_;
};

/// From here to `commit` all or nothing is written; nobody else writes meanwhile.
class Transaction {
 public:
  explicit Transaction(const Database& database) : database_(database) { database.run("BEGIN IMMEDIATE"); }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  ~Transaction();
  void commit();

 private:
  const Database& database_;
  bool is_open_ = true;
};

}  // namespace sqlite
