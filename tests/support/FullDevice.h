#pragma once

#include <sys/resource.h>

#include <csignal>
#include <stdexcept>

/// While it lives, files can be made but take no byte, as on a device without space.
class FullDevice {
 public:
  FullDevice() {
    if (getrlimit(RLIMIT_FSIZE, &kept_) != 0) throw std::runtime_error("no limit of file sizes");
    limitTo({0, kept_.rlim_max});
    former_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  FullDevice(const FullDevice&) = delete;
  FullDevice& operator=(const FullDevice&) = delete;
  ~FullDevice() {
    limitTo(kept_);
    std::signal(SIGXFSZ, former_);
  }

 private:
  static void limitTo(const rlimit& limit) { setrlimit(RLIMIT_FSIZE, &limit); }

  rlimit kept_{};
  void (*former_)(int) = nullptr;
};
