#include "platform/YamlTraps.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "platform/TextCursor.h"
#include "platform/TrapNames.h"

namespace documents {
namespace {

constexpr std::string_view kDocumentStart = "---";
constexpr std::string_view kDocumentEnd = "...";
constexpr std::string_view kFullTypeStart = "!<tag:yaml.org,2002:";

bool isDigit(char c) { return c >= '0' && c <= '9'; }
bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isBase64(std::string_view type) {
  return type == "!!binary" || type == "!^binary" || type == "!<tag:yaml.org,2002:binary>";
}
bool isText(std::string_view type) { return type == "!str" || type == "!<str"; }
bool isNumber(std::string_view type) {
  return type == "!int" || type == "!float" || type == "!<int" || type == "!<float";
}

/// What begins like a number is one to its end. Behind a type the parser takes the character behind the type's name for
/// the second one.
bool beginsNumber(const TextCursor& cursor, bool isTyped) {
  const char first = cursor.peek(0);
  const char second = isTyped ? ' ' : cursor.peek(1);
  if (first == '-' || first == '+') return isDigit(second) || second == '.';
  return isDigit(first) || (first == '.' && (isDigit(second) || isLetter(second)));
}

/// The name of a type ends at a blank or a control character, in the full form at its closing bracket.
std::string_view takeType(TextCursor& cursor) {
  if (!cursor.startsWith("!")) return {};
  std::string_view type = cursor.rest();
  std::size_t length = 0;
  while (length < type.size() && static_cast<unsigned char>(type[length]) > ' ') ++length;
  type = type.substr(0, length);
  if (type.starts_with(kFullTypeStart)) {
    const std::size_t bracket = type.find('>');
    const bool hasName = bracket != std::string_view::npos && bracket > kFullTypeStart.size();
    if (hasName) type = type.substr(0, bracket + 1);
  }
  cursor.skip(type.size());
  return type;
}

/// A quote inside the text is written twice.
void skipSingleQuotes(TextCursor& cursor) {
  do {
    cursor.skip(1);
    cursor.skipTo("'\r\n");
    cursor.skip(1);
  } while (cursor.startsWith("'"));
}

/// From a backslash over what belongs to it. Of a number the parser takes up to three hexadecimal digits, or two octal
/// ones behind an x, and goes over the character behind them, whatever it is.
const char* trapInEscape(TextCursor& cursor) {
  constexpr const char* kUnfinishedEscape = "an unfinished escape at its end";
  const char kind = cursor.peek(1);
  const std::size_t start = kind == 'x' ? 2 : 1;
  std::size_t length = 2;
  if (kind == 'x' || (kind >= '0' && kind < '8')) {
    const std::string digits(cursor.rest().substr(start, 4 - start));
    char* end = nullptr;
    std::strtol(digits.c_str(), &end, kind == 'x' ? 8 : 16);
    if (end != digits.c_str()) length = start + static_cast<std::size_t>(end - digits.c_str()) + 1;
  }
  if (cursor.rest().size() < length) return kUnfinishedEscape;
  cursor.skip(length);
  return nullptr;
}

const char* trapInDoubleQuotes(TextCursor& cursor) {
  cursor.skip(1);
  for (cursor.skipTo("\"\\\r\n"); cursor.startsWith("\\"); cursor.skipTo("\"\\\r\n")) {
    if (const char* const trap = trapInEscape(cursor)) return trap;
  }
  cursor.skip(1);
  return nullptr;
}

/// Goes through a text as the parser does. Where the parser gives up, it leaves the text, or does what it likes.
class YamlScanner {
 public:
  explicit YamlScanner(std::string_view text) : cursor_(text) { findVisible(); }

  /// The parser takes what stands on the last line for a root even without a mark in front of it, unless it begins with
  /// a letter or a digit.
  const char* trap() {
    for (bool isFirst = true;; isFirst = false) {
      while (cursor_.startsWith("%")) {
        cursor_.leaveLine();
        findVisible();
      }
      if (cursor_.startsWith(kDocumentStart)) {
        skip(kDocumentStart.size());
      } else if (!isFirst && cursor_.startsWith("-")) {
        return "a dash behind its end";
      }
      if (const char* const trap = trapInRoot()) return trap;
      if (cursor_.atEnd()) return nullptr;
      skip(kDocumentEnd.size());
    }
  }

 private:
  /// A collection around the cursor: '-' or ':' if it goes by lines, '[' or '{' in brackets.
  struct Level {
    char mark;
    std::size_t column;  ///< Of the first dash or key.
  };

  enum class Place { kValue, kBehindOpening, kBehindValue };

  /// From the first character of a root to the dots behind it, or to the end of the text.
  const char* trapInRoot() {
    if (cursor_.startsWith(kDocumentEnd)) return nullptr;
    if (cursor_.startsWithOneOf("[{!")) return "a root in brackets or of a named type";
    const char* trap = trapInValue();
    if (levels_.empty()) cursor_.leaveText();  // Only a collection may be a root.
    while (trap == nullptr && !cursor_.atEnd() && !levels_.empty()) trap = trapInStep();
    return trap;
  }

  const char* trapInStep() {
    if (place_ == Place::kValue) return trapInValue();
    return isInBrackets() ? trapInBrackets() : trapInLine();
  }

  const char* trapInValue() {
    const std::string_view type = takeType(cursor_);
    if (isBase64(type)) return kBase64;
    findVisible();
    place_ = Place::kBehindValue;
    const char* trap = nullptr;
    if (cursor_.startsWith("\"")) {
      trap = trapInDoubleQuotes(cursor_);
    } else if (cursor_.startsWith("'")) {
      skipSingleQuotes(cursor_);
    } else if (isText(type)) {
      skipText();
    } else if (isNumber(type) || beginsNumber(cursor_, !type.empty())) {
      cursor_.skipTo(" #,]}\r\n");
    } else {
      return trapInCollection();
    }
    findVisible();
    return trap;
  }

  /// Plain texts too: in brackets they may hold dashes and colons, in lines a colon makes them a map.
  const char* trapInCollection() {
    if (cursor_.startsWithOneOf("[{")) return trapInOpening(cursor_.peek(0));
    if (!isInBrackets() && cursor_.startsWith("-")) return trapInOpening('-');
    if (!isInBrackets() && colonFollows()) return trapInOpening(':');
    skipText();
    findVisible();
    return nullptr;
  }

  const char* trapInOpening(char mark) {
    if (levels_.size() == kMostLevels) return kTooDeep;
    levels_.push_back({mark, cursor_.column()});
    if (mark == ':') return trapInKey();
    place_ = mark == '-' ? Place::kValue : Place::kBehindOpening;
    skip(1);
    return nullptr;
  }

  /// Any character but a colon may be part of a key, quotes and brackets too.
  const char* trapInKey() {
    if (cursor_.startsWith(":") && cursor_.isFirstInLine()) return "a line that begins with a colon";
    if (cursor_.startsWith(":") || !colonFollows()) cursor_.leaveText();
    cursor_.skipTo(":");
    skip(1);
    place_ = Place::kValue;
    return nullptr;
  }

  /// Behind a value or the opening bracket. A comma in front of a closing square bracket makes that close two lists.
  const char* trapInBrackets() {
    if (cursor_.startsWithOneOf("]}")) {
      close();
      skip(1);
      return nullptr;
    }
    if (place_ == Place::kBehindValue) {
      if (!cursor_.startsWith(",")) cursor_.leaveText();
      skip(1);
    }
    if (levels_.back().mark == '{') return trapInKey();
    place_ = Place::kValue;
    if (cursor_.startsWith("]")) close();
    return nullptr;
  }

  void close() {
    levels_.pop_back();
    place_ = Place::kBehindValue;
  }

  /// Behind a value that is not in brackets.
  const char* trapInLine() {
    const std::size_t column = cursor_.column();
    while (!levels_.empty() && levels_.back().column > column) levels_.pop_back();
    if (cursor_.startsWith(kDocumentEnd)) {
      levels_.clear();
      return nullptr;
    }
    if (levels_.empty()) return "a line to the left of its root";
    if (levels_.back().column < column) cursor_.leaveText();
    if (levels_.back().mark == ':') return trapInKey();
    place_ = Place::kValue;
    skip(1);
    return nullptr;
  }

  bool isInBrackets() const { return !levels_.empty() && (levels_.back().mark == '[' || levels_.back().mark == '{'); }

  bool colonFollows() const {
    const std::string_view rest = cursor_.rest();
    const std::size_t found = rest.find_first_of(":\r\n");
    return found != std::string_view::npos && rest[found] == ':';
  }

  void skipText() { cursor_.skipTo(isInBrackets() ? ",]}\r\n" : "\r\n"); }

  void skip(std::size_t count) {
    cursor_.skip(count);
    findVisible();
  }

  /// Over blanks, comments and what a carriage return cuts off.
  void findVisible() {
    cursor_.skipOver(" ");
    while (cursor_.startsWithOneOf("#\r\n")) {
      cursor_.leaveLine();
      cursor_.skipOver(" ");
    }
  }

  TextCursor cursor_;
  std::vector<Level> levels_;
  Place place_ = Place::kValue;
};

}  // namespace

const char* trapInYaml(std::string_view text) { return YamlScanner(text).trap(); }

}  // namespace documents
