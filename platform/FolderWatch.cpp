#include "platform/FolderWatch.h"

#include <thread>

#if defined(__linux__)

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>

FolderWatch::FolderWatch() : handle_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

FolderWatch::~FolderWatch() {
  if (handle_ >= 0) close(handle_);
}

void FolderWatch::add(const std::string& folder) {
  if (watched_.contains(folder)) return;
  const int watch = inotify_add_watch(handle_, folder.c_str(), IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE | IN_ONLYDIR);
  if (watch >= 0) watched_[folder] = watch;
}

void FolderWatch::remove(const std::string& folder) {
  const auto found = watched_.find(folder);
  if (found == watched_.end()) return;
  inotify_rm_watch(handle_, found->second);
  watched_.erase(found);
}

bool FolderWatch::wait(std::chrono::milliseconds most) {
  if (handle_ < 0) {
    std::this_thread::sleep_for(most);
    return false;
  }
  pollfd polled{handle_, POLLIN, 0};
  if (poll(&polled, 1, static_cast<int>(most.count())) <= 0) return false;
  std::array<char, 4096> events{};
  while (read(handle_, events.data(), events.size()) > 0) {
  }
  return true;
}

#else

FolderWatch::FolderWatch() = default;
FolderWatch::~FolderWatch() = default;
void FolderWatch::add(const std::string& /*folder*/) {}
void FolderWatch::remove(const std::string& /*folder*/) {}
bool FolderWatch::wait(std::chrono::milliseconds most) {
  std::this_thread::sleep_for(most);
  return false;
}

#endif
