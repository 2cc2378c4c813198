#include "tools/polarline/Interruption.h"

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "platform/EndingSignals.h"
#include "platform/WholeFile.h"
#include "tools/polarline/Subcommand.h"
#include "tools/polarline/Terminal.h"

namespace command {
namespace {

std::atomic<bool> is_interrupted{false};

void waitForSignal() {
  constexpr std::chrono::milliseconds kGrace{500};
  if (!ending_signals::wait()) return;
  is_interrupted = true;
  std::this_thread::sleep_for(kGrace);
  whole_file::abandonAll();
  const bool can_redraw = terminal::canRedraw(terminal::errors());
  const std::string clear = can_redraw ? "\r\033[K" : "";
  ending_signals::endWith(kInterrupted, (clear + kInterruptedWords).c_str());
}

}  // namespace

void watchForInterruption() {
  ending_signals::hold();
  std::thread(waitForSignal).detach();
}

bool interrupted() { return is_interrupted; }

}  // namespace command
