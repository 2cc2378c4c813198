#pragma once

#include <string>
#include <unordered_set>

#include "store/results/Sqlite.h"

namespace polarline::results {

/// Writes down what each limit's text says, once a text: which figure it judges, how and by which bound. A text that
/// this version can't read has a row all the same, without a figure.
class LimitRules {
 public:
  explicit LimitRules(const sqlite::Database& database);
  void add(const std::string& text);

 private:
  sqlite::Statement add_;
  std::unordered_set<std::string> known_;
};

}  // namespace polarline::results
