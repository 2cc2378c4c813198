#pragma once

#include <chrono>

/// The signals that ask a process to end: SIGINT, SIGTERM and SIGHUP.
namespace ending_signals {

/// Keeps them back in this thread and in every one that it starts, for `wait`. A reader that is gone or a file that may
/// not grow ends a write with a failure from here on, not the process.
void hold();

/// Waits until one comes. False where the system has none: then they end the process as ever.
bool wait();

/// A request to end that came.
enum class Request : char {
  kNone,       ///< None in that time.
  kAtOnce,     ///< Of somebody who waits, or whose terminal is gone.
  kInOwnTime,  ///< SIGTERM: of a machine, which gives the process some time.
};

/// The same for no longer than that, and which kind came; below 0 there is no limit.
Request waitFor(std::chrono::milliseconds most);

/// Puts bytes on standard error past its stream, which another thread may hold, and ends the process at once.
[[noreturn]] void endWith(int exit_code, const char* words);

}  // namespace ending_signals
