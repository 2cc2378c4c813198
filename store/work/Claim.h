#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/ExclusiveFile.h"
#include "store/work/Silence.h"
#include "store/work/StoreFolder.h"

namespace polarline {

/// The right of one worker to a place of the store; given back with the object. Says again and again that its worker
/// lives.
class Claim {
 public:
  /// Empty while another worker has it; that of a dead one is taken over. Throws `OutputError`.
  static std::unique_ptr<Claim> take(const StoredPlace& place, Silence& silence, double timeout_seconds);

  Claim(std::unique_ptr<ExclusiveFile> file, double timeout_seconds);
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;
  ~Claim();

  /// False when another worker took it over, as this one seemed dead.
  bool isHeld() const { return file_->isThere(); }

 private:
  void beat();

  std::unique_ptr<ExclusiveFile> file_;
  std::chrono::duration<double> interval_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool is_over_ = false;
  std::thread heart_;
};

}  // namespace polarline
