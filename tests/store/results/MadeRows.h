#pragma once

#include <string>

#include "store/results/LoadDocument.h"

/// What was read of documents that nobody wrote.
namespace made_rows {

/// A set of one finished pair.
inline polarline::results::DocumentRows document(const std::string& started = "2026-01-02T03:04:05Z",
                                                 bool retry = false) {
  polarline::results::DocumentRows rows;
  rows.library = "PolarLinePrecision 1.3.3";
  rows.started = started;
  rows.id = "aa";
  rows.name = "set";
  rows.folder = "/sets/set";
  rows.status_code = 0;
  rows.status = "success";
  rows.retry = retry;
  rows.verdict = retry ? "error" : "pass";
  rows.judged = 1;
  rows.pairs_run = rows.pairs_finished = 1;
  rows.pairs.push_back({0, "l.png", "r.png", "finished", {}, "", "", "", 12, 11});
  rows.figures.push_back({0, "dy_means", -1, false, 0.05});
  rows.limits.push_back({"dy_means<=0.1", 0.05, true, 0});
  return rows;
}

/// The document of that name as a merge reads it: its content is known by the hash, its file by the size.
inline polarline::results::LoadedDocument loaded(const std::string& name, const std::string& sha256,
                                                 std::int64_t size = 100,
                                                 const polarline::results::DocumentRows& rows = document()) {
  polarline::results::LoadedDocument loaded;
  loaded.name = name;
  loaded.document = {size, 1, 1};
  loaded.sha256 = sha256;
  loaded.rows = rows;
  return loaded;
}

}  // namespace made_rows
