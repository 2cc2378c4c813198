#pragma once

#include <cstddef>
#include <cstdio>
#include <optional>

/// What the system knows of a stream that may be a terminal.
namespace terminal_stream {

bool isTerminal(std::FILE* stream);

/// Columns; none where there is no terminal or it does not tell.
std::optional<std::size_t> columns(std::FILE* stream);

/// Everything that is written to `stderr` from here on goes nowhere, but what goes to the stream that it was, which is
/// returned. Where the system does not allow that nothing changes.
std::FILE* takeStandardError();

}  // namespace terminal_stream
