#pragma once

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

#include "check/HandMadeCheck.h"
#include "polarline/check.h"
#include "polarline/store.h"
#include "store/results/Sqlite.h"
#include "support/TempFolder.h"

/// Store folders of checks that nobody ran, and the results of merging them.
namespace made_store {

/// A check whose pairs have these `dy_means`, under the limit dy_means<=0.1.
inline polarline::Check check(const std::vector<double>& dy_means,
                              const std::string& started = "2026-01-02T03:04:05Z") {
  polarline::Check check;
  check.started = started;
  check.name = check.folder = "set";
  check.id = std::string(64, 'a');
  check.status.code = 0;
  check.board = {3, 3, 4, 10.0, 10.0, 0};
  check.cameras.model = "brown5";
  check.cameras.left = check.cameras.right = {100.0, 100.0, 20.0, 15.0, {0, 0, 0, 0, 0, 0, 0, 0}};
  for (std::size_t k = 0; k < dy_means.size(); ++k)
    check.pairs.push_back(hand_made::pair(k, {dy_means[k]}, {dy_means[k], -2.0 * dy_means[k]}));
  const auto worst = std::ranges::max_element(dy_means);
  const bool holds = worst != dy_means.end() && *worst <= 0.1;
  if (worst != dy_means.end())
    check.limits = {{"dy_means<=0.1", *worst, static_cast<int>(worst - dy_means.begin()), holds, "so it is"}};
  check.verdict = holds ? polarline::Verdict::kPass : polarline::Verdict::kFail;
  return check;
}

/// A check that ended before it had a figure.
inline polarline::Check failed(bool retry = false) {
  polarline::Check check = made_store::check({});
  check.status = {std::nullopt, "CALIB_READ_FAILED", "calib.json: cannot be read", "Look for it.", retry, 2};
  check.verdict = polarline::Verdict::kError;
  return check;
}

/// A name as documents have: hex digits of a number.
inline std::string name(unsigned number) {
  std::string digits = "0123456789abcdef";
  std::string text(16, '0');
  for (std::size_t k = text.size(); k-- > 0; number /= 16U) text[k] = digits[number % 16U];
  std::swap(text[0], text[14]);  // So that they lie in several folders.
  std::swap(text[1], text[15]);
  return text;
}

using Metadata = std::map<std::string, std::string>;

class Store {
 public:
  Store() { folder_.write("polarline-store.json", "{}"); }
  std::string path() const { return folder_.path().string(); }
  std::filesystem::path file(const std::string& name, const char* end = ".json") const {
    return folder_.path() / name.substr(0, 2) / (name + end);
  }
  /// Appears by renaming, as a worker's do.
  void write(const std::string& name, const std::string& text, const char* end = ".json") const {
    std::filesystem::create_directories(file(name, end).parent_path());
    const std::string beside = folder_.write("partial", text);
    std::filesystem::rename(beside, file(name, end));
  }
  void add(const std::string& name, const polarline::Check& check, const Metadata& metadata = {}) const {
    write(name, toJson(check));
    if (!metadata.empty()) describe(name, metadata);
  }
  void describe(const std::string& name, const Metadata& metadata) const {
    write(name, nlohmann::json{{"metadata", metadata}, {"settings", "5e"}}.dump(), ".metadata.json");
  }
  /// Of a set that lay there when it was judged.
  void addAt(const std::string& place, const std::string& name, const polarline::Check& check,
             const Metadata& metadata) const {
    add(name, check);
    write(name, nlohmann::json{{"metadata", metadata}, {"settings", "5e"}, {"place", place}}.dump(), ".metadata.json");
  }

 private:
  TempFolder folder_;
};

/// A results file and what is in it.
class Results {
 public:
  std::string path() const { return folder_.file("results.sqlite"); }
  polarline::MergeResult merge(const std::vector<std::string>& stores) const {
    return polarline::merge(stores, path());
  }
  polarline::MergeResult merge(const Store& store) const { return merge(std::vector<std::string>{store.path()}); }

  /// The rows of a query: columns with | between them, NULL as nothing.
  std::vector<std::string> rows(const std::string& query) const { return rowsOf(path(), query); }
  std::string one(const std::string& query) const {
    const std::vector<std::string> found = rows(query);
    return found.size() == 1 ? found[0] : "rows: " + std::to_string(found.size());
  }
  void run(const std::string& sql) const { sqlite::Database(path(), sqlite::Access::kWrite).run(sql); }

  static std::vector<std::string> rowsOf(const std::string& path, const std::string& query) {
    const sqlite::Database database(path, sqlite::Access::kRead);
    sqlite::Statement statement(database, query);
    std::vector<std::string> found;
    while (statement.step()) {
      std::string row = statement.text(0);
      for (int k = 1; k < statement.columns(); ++k) row += "|" + statement.text(k);
      found.push_back(row);
    }
    return found;
  }

  /// All that the results say of the sets, whatever their numbers.
  std::vector<std::string> content() const {
    std::vector<std::string> all = rows(
        "SELECT name, inputs_sha256, settings, set_name, serial, station, model, time, has_time, started, verdict, "
        "judged, "
        "status, retry, pairs, finished, diagnosed FROM sets ORDER BY name");
    for (const char* query :
         {"SELECT s.name, pair, f.name, value, sd FROM figure_values f JOIN sets s ON s.id = set_id ORDER BY 1, 2, 3",
          "SELECT s.name, position, text, value, holds, pair FROM limits JOIN sets s ON s.id = set_id ORDER BY 1, 2",
          "SELECT s.name, key, value FROM metadata JOIN sets s ON s.id = set_id ORDER BY 1, 2",
          "SELECT path FROM quarantine ORDER BY 1",
          "SELECT * FROM limit_rules WHERE text IN (SELECT text FROM limits) ORDER BY 1"}) {
      for (std::string& row : rows(query)) all.push_back(std::move(row));
    }
    return all;
  }

 private:
  TempFolder folder_;
};

}  // namespace made_store
