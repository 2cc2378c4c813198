#include "tools/polarline/Interruption.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include "platform/WholeFile.h"
#include "tools/polarline/Subcommand.h"

namespace command {
namespace {

std::atomic<bool> is_interrupted{false};

sigset_t endingSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
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
  _exit(kInterrupted);
}

}  // namespace

void watchForInterruption() {
  const sigset_t signals = endingSignals();
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);  // In every thread; one waits for them.
  std::thread(waitForSignal).detach();
}

bool interrupted() { return is_interrupted; }

}  // namespace command
