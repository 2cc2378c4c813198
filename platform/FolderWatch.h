#pragma once

#include <chrono>
#include <map>
#include <string>

/// Waits until something happens in some folders. What happened is not told: whoever waits looks. Where the system
/// tells nothing, as of folders that another machine fills, waiting takes its time.
class FolderWatch {
 public:
  FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;
  ~FolderWatch();

  void add(const std::string& folder);
  void remove(const std::string& folder);
  /// True when something happened.
  bool wait(std::chrono::milliseconds most);

 private:
  int handle_ = -1;
  std::map<std::string, int> watched_;
};
