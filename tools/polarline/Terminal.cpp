#include "tools/polarline/Terminal.h"

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <string_view>

#include "platform/TerminalStream.h"

namespace terminal {
namespace {

constexpr std::size_t kUsualWidth = 80;

bool isSet(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

constexpr std::size_t kFurther = 2;

/// A line that is longer than the width.
std::string folded(const std::string& line, std::size_t width) {
  const std::size_t begin = line.find_first_not_of(' ');
  const std::size_t end = line.find_last_not_of(' ', line.rfind("  "));  // Of all columns but the last.
  const bool has_columns = end != std::string::npos && end > begin && line.rfind("  ") != std::string::npos;
  if (!has_columns && 2 * begin > width) return wrapped("    " + line.substr(begin), width, 2 * kFurther);
  if (!has_columns) return wrapped(line, width, begin > 2 * kFurther ? begin : begin + kFurther);
  const std::size_t column = line.find_first_not_of(' ', end + 1);
  if (2 * column <= width) return wrapped(line, width, column);
  return wrapped(line.substr(0, end + 1), width, begin + kFurther) +
         wrapped(std::string(begin + kFurther, ' ') + line.substr(column), width, begin + kFurther);
}

std::FILE*& ours() {
  static std::FILE* stream = stderr;
  return stream;
}

}  // namespace

std::FILE* errors() { return ours(); }

void silenceDecoders() { ours() = terminal_stream::takeStandardError(); }

std::string wrapped(const std::string& text, std::size_t width, std::size_t indent) {
  const std::string shown = onOneLine(text);
  std::string lines;
  std::string line(std::min(shown.find_first_not_of(' '), shown.size()), ' ');  // The first line keeps its own indent.
  std::size_t begin = line.size();
  while (begin <= shown.size()) {
    const std::size_t end = std::min(shown.find(' ', begin), shown.size());
    const std::string word = shown.substr(begin, end - begin);
    const bool has_words = line.find_first_not_of(' ') != std::string::npos;
    if (has_words && line.size() + 1 + word.size() > width) {
      lines += line + "\n";
      line = std::string(indent, ' ') + word;
    } else {
      line += (has_words ? " " : "") + word;
    }
    begin = end + 1;
  }
  return lines + line + "\n";
}

std::string fitted(const std::string& text, std::size_t width) {
  std::string lines;
  std::istringstream stream(printable(text));
  for (std::string line; std::getline(stream, line);) {
    const bool fits = line.size() <= width || line.find_first_not_of(' ') == std::string::npos;
    lines += fits ? line + "\n" : folded(line, width);
  }
  return lines;
}

bool isTerminal(std::FILE* stream) { return terminal_stream::isTerminal(stream); }

std::size_t width(std::FILE* stream) { return terminal_stream::columns(stream).value_or(kUsualWidth); }

bool canRedraw(std::FILE* stream) {
  return isTerminal(stream) && !(isSet("TERM") && std::string_view(std::getenv("TERM")) == "dumb");
}

bool hasColours(std::FILE* stream) { return canRedraw(stream) && !isSet("NO_COLOR"); }

}  // namespace terminal
