#include "tools/polarline/Terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string_view>

namespace terminal {
namespace {

constexpr std::size_t kUsualWidth = 80;

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

}  // namespace

bool isTerminal(std::FILE* stream) { return isatty(fileno(stream)) == 1; }

std::size_t width(std::FILE* stream) {
  winsize size{};
  if (ioctl(fileno(stream), TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return kUsualWidth;
  return size.ws_col;
}

bool hasColours(std::FILE* stream) {
  if (!isTerminal(stream) || isSet("NO_COLOR")) return false;
  return !isSet("TERM") || std::string_view(std::getenv("TERM")) != "dumb";
}

}  // namespace terminal
