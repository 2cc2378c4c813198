#pragma once

namespace command {

/// What is said then: results that were whole stay.
inline constexpr const char* kInterruptedWords = "polarline: interrupted; nothing half was left\n";

/// Takes SIGINT, SIGTERM and SIGHUP: what is half written is removed and the process ends with 130. Results that belong
/// together and are just being written are written to their end, which is then the process's own. Call before any
/// thread is started.
void watchForInterruption();

/// From here on the process looks at `interrupted()` now and then and ends by itself: it has half a second for that.
void endAtOwnLook();
bool interrupted();

/// From here on SIGTERM lets what is at hand come to its end, for so many seconds at most or until a second signal;
/// then all is as above. Systems that run jobs send it some time before they end them.
void finishAtTermination(double seconds);

/// What is said of a run that does what it does in steps, of which those that are done stay.
void sayAtInterruption(const char* words);

/// Whether somebody wants nothing new to be begun.
bool ending();

}  // namespace command
