#pragma once

#include <chrono>
#include <cstddef>

namespace command {

/// A line of progress on standard error, only where that is a terminal: pairs done and the time left.
class PairProgress {
 public:
  explicit PairProgress(bool quiet, const char* what = "pair");
  PairProgress(const PairProgress&) = delete;
  PairProgress& operator=(const PairProgress&) = delete;
  ~PairProgress() { clear(); }

  void show(std::size_t done, std::size_t all);

  /// Takes the line away.
  void clear();

 private:
  const char* what_;
  bool visible_;
  bool shown_ = false;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

}  // namespace command
