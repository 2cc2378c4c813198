#include "platform/EndingSignals.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#if !defined(_WIN32)
#include <pthread.h>
#include <unistd.h>

#include <ctime>
#endif

namespace ending_signals {

#if defined(_WIN32)

void hold() {}
bool wait() { return false; }
Request waitFor(std::chrono::milliseconds /*most*/) { return Request::kNone; }
void endWith(int exit_code, const char* /*words*/) { std::_Exit(exit_code); }

#else

namespace {

sigset_t all() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGHUP);
  return signals;
}

}  // namespace

void hold() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const sigset_t signals = all();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

bool wait() {
  const sigset_t signals = all();
  int signal = 0;
  return sigwait(&signals, &signal) == 0;
}

Request waitFor(std::chrono::milliseconds most) {
  const sigset_t signals = all();
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(most);
  const timespec limit{static_cast<time_t>(seconds.count()),
                       static_cast<long>(std::chrono::nanoseconds(most - seconds).count())};
  int signal = 0;
  do {
    signal = most.count() < 0 ? sigwaitinfo(&signals, nullptr) : sigtimedwait(&signals, nullptr, &limit);
  } while (signal < 0 && errno == EINTR);
  if (signal < 0) return Request::kNone;
  return signal == SIGTERM ? Request::kInOwnTime : Request::kAtOnce;
}

void endWith(int exit_code, const char* words) {
  static_cast<void>(!write(STDERR_FILENO, words, std::strlen(words)));
  _exit(exit_code);
}

#endif

}  // namespace ending_signals
