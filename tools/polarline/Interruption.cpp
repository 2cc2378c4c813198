#include "tools/polarline/Interruption.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <string_view>
#include <thread>

#include "platform/WholeFile.h"
#include "tools/polarline/Subcommand.h"
#include "tools/polarline/Terminal.h"

namespace command {
namespace {

std::atomic<bool> is_interrupted{false};

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  sigaddset(&signals, SIGHUP);
  return signals;
}

void waitForSignal() {
  constexpr std::chrono::milliseconds kGrace{500};
  const sigset_t signals = endingSignals();
  int signal = 0;
  sigwait(&signals, &signal);
  is_interrupted = true;
  std::this_thread::sleep_for(kGrace);
  whole_file::abandonAll();
  constexpr std::string_view kWords = "polarline: interrupted; nothing half was left\n";
  if (terminal::isTerminal(stderr)) static_cast<void>(!write(STDERR_FILENO, "\r\033[K", 4));
  static_cast<void>(!write(STDERR_FILENO, kWords.data(), kWords.size()));  // The stream may be locked by now.
  _exit(kInterrupted);
}

}  // namespace

void watchForInterruption() {
  // A reader that is gone or a file that may not grow ends a write with a failure, not the process in the middle of it.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // In every thread; one waits for them.
  std::thread(waitForSignal).detach();
}

bool interrupted() { return is_interrupted; }

}  // namespace command
