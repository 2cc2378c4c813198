#include "platform/YamlTraps.h"

#include <algorithm>
#include <cstddef>

namespace documents {
namespace {

constexpr std::string_view kDocumentStart = "---";
constexpr std::string_view kDocumentEnd = "...";

/// Goes from one visible character to the next, over blanks, comments and what a carriage return cuts off.
class Cursor {
 public:
  explicit Cursor(std::string_view text) : text_(text) { findVisible(); }

  bool atEnd() const { return at_ == text_.size(); }
  std::size_t column() const { return at_ - line_; }
  bool startsWith(std::string_view mark) const { return text_.substr(at_).starts_with(mark); }
  bool startsWithOneOf(std::string_view marks) const {
    return !atEnd() && marks.find(text_[at_]) != std::string_view::npos;
  }

  void skip(std::string_view mark) {
    at_ += mark.size();
    findVisible();
  }

  void nextLine() {
    leaveLine();
    findVisible();
  }

 private:
  void findVisible() {
    skipBlanks();
    while (startsWithOneOf("#\r\n")) {
      leaveLine();
      skipBlanks();
    }
  }

  void skipBlanks() { at_ = std::min(text_.find_first_not_of(' ', at_), text_.size()); }

  void leaveLine() {
    const std::size_t end = text_.find('\n', at_);
    line_ = at_ = end == std::string_view::npos ? text_.size() : end + 1;
  }

  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;  ///< Where the line of `at_` begins.
};

/// Moves from the first character of a root to the dots behind it, or to the end of the text.
const char* trapInRoot(Cursor& cursor) {
  if (cursor.startsWithOneOf("[{!")) return "a root in brackets or of a named type";
  const std::size_t column = cursor.column();
  for (cursor.nextLine(); !cursor.atEnd(); cursor.nextLine()) {
    if (cursor.startsWith(":")) return "a line that begins with a colon";
    if (cursor.column() <= column && cursor.startsWith(kDocumentEnd)) return nullptr;
    if (cursor.column() < column) return "a line to the left of its root";
  }
  return nullptr;
}

/// The type in its three forms.
bool holdsBase64(std::string_view text) {
  const auto contains = [text](std::string_view part) { return text.find(part) != std::string_view::npos; };
  return contains("!binary") || contains("^binary") || contains(",2002:binary");
}

/// A backslash with, at the most, a number behind it.
bool endsInEscape(std::string_view text) {
  const std::size_t last = text.find_last_not_of("x0123456789abcdefABCDEF");
  return last != std::string_view::npos && text[last] == '\\';
}

}  // namespace

const char* trapInYaml(std::string_view text) {
  if (holdsBase64(text)) return "base64 data";
  if (endsInEscape(text)) return "an unfinished escape at its end";
  Cursor cursor(text);
  for (bool isFirst = true;; isFirst = false) {
    while (cursor.startsWith("%")) cursor.nextLine();
    if (cursor.startsWith(kDocumentStart)) {
      cursor.skip(kDocumentStart);
    } else if (!isFirst) {
      return cursor.startsWith("-") ? "a dash behind its end" : nullptr;
    }
    if (!cursor.atEnd() && !cursor.startsWith(kDocumentEnd)) {
      if (const char* const trap = trapInRoot(cursor)) return trap;
    }
    if (cursor.atEnd()) return nullptr;
    cursor.skip(kDocumentEnd);
  }
}

}  // namespace documents
