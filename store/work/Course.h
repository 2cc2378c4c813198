#pragma once

#include <chrono>
#include <opencv2/core/utility.hpp>

#include "polarline/batch.h"
#include "store/work/Worker.h"

namespace polarline {

/// One thread of OpenCV while it lives: a machine is filled by its workers.
class OneThread {
 public:
  OneThread() : before_(cv::getNumThreads()) { cv::setNumThreads(1); }
  OneThread(const OneThread&) = delete;
  OneThread& operator=(const OneThread&) = delete;
  ~OneThread() { cv::setNumThreads(before_); }

 private:
  int before_;
};

/// Throws `InputError` for options with which no set can be judged.
void demandUsable(const BatchOptions& options);

/// Whether a batch comes to its end before its list does.
class Course {
 public:
  explicit Course(const BatchOptions& options) : options_(options) {}

  /// Between sets.
  bool goesOn(const BatchOutcome& outcome);
  void drop() { is_interrupted_ = true; }
  /// Waits in small steps, as long as the batch goes on.
  void wait(const BatchOutcome& outcome, std::chrono::milliseconds time);
  /// With the exit code of its end; of a list that was not gone through to its end it tells so.
  BatchOutcome ended(BatchOutcome outcome, bool is_whole = true) const;

 private:
  const BatchOptions& options_;
  bool is_interrupted_ = false;
};

}  // namespace polarline
