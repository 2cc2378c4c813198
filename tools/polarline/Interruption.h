#pragma once

namespace command {

/// What is said then: results that were whole stay.
inline constexpr const char* kInterruptedWords = "polarline: interrupted; nothing half was left\n";

/// Takes SIGINT, SIGTERM and SIGHUP: the process goes on until its next look at `interrupted()`, for half a second at
/// most; then what is half written is removed and the process ends with 130. Call before any thread is started.
void watchForInterruption();

bool interrupted();

/// From here on SIGTERM lets what is at hand come to its end, for so many seconds at most or until a second signal;
/// then all is as above. Systems that run jobs send it some time before they end them.
void finishAtTermination(double seconds);

/// Whether somebody wants nothing new to be begun.
bool ending();

}  // namespace command
