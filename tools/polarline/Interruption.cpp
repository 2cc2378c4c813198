#include "tools/polarline/Interruption.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>
#include <thread>

#include "platform/EndingSignals.h"
#include "platform/WholeFile.h"
#include "tools/polarline/Subcommand.h"
#include "tools/polarline/Terminal.h"

namespace command {
namespace {

std::atomic<bool> is_interrupted{false};
std::atomic<bool> is_ending{false};
std::atomic<bool> looks_itself{false};
std::atomic<const char*> words_at_end{kInterruptedWords};
std::atomic<double> time_to_finish{0.0};  ///< Seconds.

void waitForSignal() {
  constexpr std::chrono::milliseconds kGrace{500};
  constexpr std::chrono::milliseconds kNoLimit{-1};
  const ending_signals::Request request = ending_signals::waitFor(kNoLimit);
  if (request == ending_signals::Request::kNone) return;
  is_ending = true;
  if (request == ending_signals::Request::kInOwnTime && time_to_finish > 0.0)
    ending_signals::waitFor(std::chrono::milliseconds(static_cast<std::int64_t>(time_to_finish * 1000.0)));
  is_interrupted = true;
  if (looks_itself) std::this_thread::sleep_for(kGrace);
  if (whole_file::endTogether()) std::this_thread::sleep_for(kGrace);
  whole_file::abandonAll();
  const bool can_redraw = terminal::canRedraw(terminal::errors());
  const std::string clear = can_redraw ? "\r\033[K" : "";
  ending_signals::endWith(kInterrupted, (clear + words_at_end.load()).c_str());
}

}  // namespace

void watchForInterruption() {
  ending_signals::hold();
  std::thread(waitForSignal).detach();
}

void endAtOwnLook() { looks_itself = true; }

bool interrupted() { return is_interrupted; }

void finishAtTermination(double seconds) { time_to_finish = seconds; }

void sayAtInterruption(const char* words) { words_at_end = words; }

bool ending() { return is_ending; }

}  // namespace command
