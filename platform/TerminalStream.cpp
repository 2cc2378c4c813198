#include "platform/TerminalStream.h"

#if defined(_WIN32)
#include <io.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace terminal_stream {

#if defined(_WIN32)

bool isTerminal(std::FILE* stream) { return _isatty(_fileno(stream)) != 0; }
std::optional<std::size_t> columns(std::FILE* /*stream*/) { return std::nullopt; }
std::FILE* takeStandardError() { return stderr; }

#else

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) == 1; }

std::optional<std::size_t> columns(std::FILE* stream) {
  winsize size{};
  if (ioctl(fileno(stream), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

std::FILE* takeStandardError() {
  std::FILE* const stream = stderr;
  if (std::FILE* const nowhere = std::fopen("/dev/null", "we")) stderr = nowhere;
  return stream;
}

#endif

}  // namespace terminal_stream
