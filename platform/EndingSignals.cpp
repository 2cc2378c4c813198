#include "platform/EndingSignals.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#if !defined(_WIN32)
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <unistd.h>

#include <array>
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

constexpr std::array kEnding = {SIGINT, SIGTERM, SIGHUP};

sigset_t all() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : kEnding) sigaddset(&signals, signal);
  return signals;
}

/// A pipe, as a handler may write to one and a thread may wait for it: the number of each signal that came, a byte.
std::array<int, 2> came = {-1, -1};

/// Threads that were there before `hold`, as libraries start them before `main`, keep nothing back: a signal that goes
/// to one of them comes here, too.
void tell(int signal) {
  const int before = errno;
  const auto number = static_cast<unsigned char>(signal);
  static_cast<void>(!write(came[1], &number, 1));
  errno = before;
}

/// The next signal; 0 where none comes in that time, or none can be told.
int next(const timespec* most) {
  sigset_t open_here;
  pthread_sigmask(SIG_SETMASK, nullptr, &open_here);
  for (const int signal : kEnding) sigdelset(&open_here, signal);
  pollfd polled{came[0], POLLIN, 0};
  while (came[0] >= 0) {
    unsigned char number = 0;
    if (read(came[0], &number, 1) == 1) return number;
    const int count = ppoll(&polled, 1, most, &open_here);
    if (count == 0 || (count < 0 && errno != EINTR)) break;
  }
  return 0;
}

}  // namespace

void hold() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  if (came[0] < 0 && pipe2(came.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;  // They end the process as ever.
  struct sigaction action {};
  action.sa_handler = tell;
  action.sa_mask = all();
  action.sa_flags = SA_RESTART;
  for (const int signal : kEnding) sigaction(signal, &action, nullptr);
  pthread_sigmask(SIG_BLOCK, &action.sa_mask, nullptr);
}

bool wait() { return next(nullptr) != 0; }

Request waitFor(std::chrono::milliseconds most) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(most);
  const timespec limit{static_cast<time_t>(seconds.count()),
                       static_cast<long>(std::chrono::nanoseconds(most - seconds).count())};
  const int signal = next(most.count() < 0 ? nullptr : &limit);
  if (signal == 0) return Request::kNone;
  return signal == SIGTERM ? Request::kInOwnTime : Request::kAtOnce;
}

void endWith(int exit_code, const char* words) {
  static_cast<void>(!write(STDERR_FILENO, words, std::strlen(words)));
  _exit(exit_code);
}

#endif

}  // namespace ending_signals
