#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "bench/Contest.h"

/// One line of the table: something that we do, what it is held against, and how many times the one is the other.
struct Row {
  std::string group = {};           ///< "detect", "others", "evaluate", "rectify", "run", "growth" or "memory".
  std::string name = {};            ///< What is done, and on what.
  std::string against = {};         ///< What it is held against.
  std::string unit = "ms";          ///< Of the two amounts: "ms" of processor time, or "MB".
  std::optional<Spread> ours = {};  ///< None where only the ratio has a meaning.
  std::optional<Spread> theirs = {};
  Spread ratio = {};  ///< Ours over theirs, formed in each round; of a growth its exponent.
  std::size_t rounds = 1;
  std::optional<double> goal = {};  ///< The ratio is to be this at most.
  std::string note = {};            ///< Such as whether the other found anything.
};

/// What a run of the bench was.
struct RunNotes {
  std::string machine;  ///< The processor's name.
  std::string date;     ///< Of the day, year first.
  double load = 0.0;    ///< Of the machine over the last minute, when the bench began.
  int threads = 1;      ///< That OpenCV may use.
  bool quick = false;   ///< Whether it only shows that the bench works.
};
RunNotes notesOfToday(int threads, bool quick);

/// Prints a row of the table, and before the first of a group its heading.
class Table {
 public:
  explicit Table(std::ostream& out) : out_(out) {}
  void begin(const RunNotes& notes);
  void add(const Row& row);
  const std::vector<Row>& rows() const { return rows_; }

 private:
  std::ostream& out_;
  std::vector<Row> rows_;
};

/// The rows as a JSON document; docs/speed.md says what its keys mean.
std::string jsonOf(const RunNotes& notes, const std::vector<Row>& rows);
