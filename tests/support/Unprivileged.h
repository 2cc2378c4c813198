#pragma once

#include <sys/prctl.h>
#include <unistd.h>

#include <stdexcept>

/// While it lives, permissions bind the process, also one that root started.
class Unprivileged {
 public:
  Unprivileged() { become(kNobody); }
  Unprivileged(const Unprivileged&) = delete;
  Unprivileged& operator=(const Unprivileged&) = delete;
  ~Unprivileged() { become(0); }

 private:
  static constexpr uid_t kNobody = 65534;

  void become(uid_t user) const {
    if (!is_root_) return;
    if (seteuid(user) != 0) throw std::runtime_error("the user cannot be changed");
    prctl(PR_SET_DUMPABLE, 1);  // Else the leak check at the end of the process may not look into it.
  }

  bool is_root_ = getuid() == 0;
};
