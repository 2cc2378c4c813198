#include <chrono>
#include <exception>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>
#include <utility>

#include "platform/FolderWatch.h"
#include "polarline/batch.h"
#include "polarline/errors.h"
#include "store/work/Course.h"
#include "store/work/Judging.h"
#include "store/work/ReadyFolders.h"
#include "store/work/Worker.h"

namespace polarline {
namespace {

using Steady = std::chrono::steady_clock;

class Watch {
 public:
  Watch(std::string folder, const BatchOptions& options)
      : folder_(std::move(folder)), options_(options), course_(options), worker_(options) {
    system_.add(folder_);
  }

  BatchOutcome run() {
    while (goesOn()) {
      for (const WatchedFolder& each : foldersIn(folder_)) look(each);
      wait();
    }
    return course_.ended(worker_.outcome());
  }

 private:
  /// What became of a folder the last time.
  struct Taken {
    std::filesystem::file_time_type ready;
    bool retry = false;
    Steady::time_point when;
  };
  static constexpr std::chrono::seconds kBeforeRetry{30};
  static constexpr std::chrono::seconds kBetweenLooks{5};  ///< At folders of which the system tells nothing.

  bool goesOn() { return course_.goesOn(worker_.outcome()); }

  bool isDone(const WatchedFolder& folder) const {
    const auto taken = taken_.find(folder.path);
    if (taken == taken_.end() || taken->second.ready != folder.ready) return false;
    return !taken->second.retry || Steady::now() - taken->second.when < kBeforeRetry;
  }

  void look(const WatchedFolder& folder) {
    if (!folder.is_ready) return system_.add(folder.path);
    system_.remove(folder.path);
    if (isDone(folder) || !goesOn() || !take(folder)) return;
    taken_[folder.path] = {folder.ready, worker_.last().retry, Steady::now()};
  }

  /// False where it is still to be taken.
  bool take(const WatchedFolder& folder) {
    BatchSet set;
    set.folder = folder.path;
    try {
      set = readySet(folder);
    } catch (const std::exception& error) {
      worker_.refuse(set, error.what());
      return true;
    }
    const Worker::End end = worker_.take(set, idOf(filesOf(set, options_), options_));
    if (end == Worker::End::kDropped) course_.drop();
    return end == Worker::End::kDone;
  }

  void wait() {
    constexpr std::chrono::milliseconds kStep{50};
    const auto until = Steady::now() + kBetweenLooks;
    while (goesOn() && Steady::now() < until) {
      if (system_.wait(kStep)) return;
    }
  }

  std::string folder_;
  const BatchOptions& options_;
  Course course_;
  Worker worker_;
  FolderWatch system_;
  std::map<std::string, Taken> taken_;
};

}  // namespace

BatchOutcome watchFolder(const std::string& folder, const BatchOptions& options) {
  demandUsable(options);
  std::error_code failure;
  if (!std::filesystem::is_directory(folder, failure))
    throw InputError(folder, "is no folder; one into which sets are put was wanted");
  const OneThread one;
  return Watch(folder, options).run();
}

}  // namespace polarline
