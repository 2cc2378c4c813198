#pragma once

#include <cstdint>

namespace polarline {

/// What the command returns, the same for every subcommand, and `Status::exit_code`.
enum ExitCode : std::uint8_t {
  kDone = 0,           ///< Done, and every limit holds.
  kLimitExceeded = 1,  ///< A limit is exceeded.
  kUnusable = 2,       ///< The command line or an input can't be used.
  kNoFigure = 3,       ///< The run ended without a figure.
  kNotWritten = 4,     ///< A result could not be written.
  kInterrupted = 130,  ///< By SIGINT, SIGTERM or SIGHUP.
};

}  // namespace polarline
