#include "platform/JsonTraps.h"

#include <string>

#include "platform/TextCursor.h"
#include "platform/TrapNames.h"

namespace documents {
namespace {

/// Goes through a text as the parser does. Where the parser gives up, it goes to the end.
class JsonScanner {
 public:
  explicit JsonScanner(std::string_view text) : cursor_(text) {}

  const char* trap() {
    for (skipSpaces(); !cursor_.atEnd(); skipSpaces()) {
      if (const char* const trap = trapInToken()) return trap;
    }
    return nullptr;
  }

 private:
  /// Blanks and comments; a carriage return cuts off the rest of its line, but not inside a comment of the longer form.
  void skipSpaces() {
    cursor_.skipOver(" \t\n");
    while (cursor_.startsWith("\r") || cursor_.startsWith("//") || cursor_.startsWith("/*")) {
      if (cursor_.startsWith("/*")) {
        cursor_.skip(2);
        cursor_.skipPast("*/");
      } else {
        cursor_.leaveLine();
      }
      cursor_.skipOver(" \t\n");
    }
  }

  const char* trapInToken() {
    const char first = cursor_.rest().front();
    const bool isKey = first == '"' && !open_.empty() && open_.back() == '{' && before_ != ':';
    before_ = first;
    cursor_.skip(1);
    if (isKey) {
      skipKey();
    } else if (first == '"') {
      return trapInString();
    } else if (first == '[' || first == '{') {
      open_ += first;
      if (open_.size() > kMostLevels) return kTooDeep;
    } else if (first == ']' || first == '}') {
      close();
    }
    return nullptr;
  }

  void close() {
    if (!open_.empty()) open_.pop_back();
    if (open_.empty()) cursor_.leaveText();
  }

  /// A backslash is a letter of a key like others.
  void skipKey() {
    cursor_.skipTo("\"\r\n");
    skipQuote();
  }

  const char* trapInString() {
    if (cursor_.startsWith("$base64$")) return kBase64;
    cursor_.skipTo("\"\\\r\n");
    while (cursor_.startsWith("\\")) {
      cursor_.skip(2);
      cursor_.skipTo("\"\\\r\n");
    }
    skipQuote();
    return nullptr;
  }

  void skipQuote() {
    if (!cursor_.startsWith("\"")) cursor_.leaveText();
    cursor_.skip(1);
  }

  TextCursor cursor_;
  std::string open_;    ///< The brackets around the cursor.
  char before_ = '\0';  ///< The first character of the token before, comments aside.
};

}  // namespace

const char* trapInJson(std::string_view text) { return JsonScanner(text).trap(); }

}  // namespace documents
