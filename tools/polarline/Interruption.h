#pragma once

namespace command {

/// What is said then: results that were whole stay.
inline constexpr const char* kInterruptedWords = "polarline: interrupted; nothing half was left\n";

/// Takes SIGINT, SIGTERM and SIGHUP: the process goes on until its next look at `interrupted()`, for half a second at
/// most; then what is half written is removed and the process ends with 130. Call before any thread is started.
void watchForInterruption();

bool interrupted();

}  // namespace command
