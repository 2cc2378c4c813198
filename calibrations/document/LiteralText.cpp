#include "calibrations/document/LiteralText.h"

#include <algorithm>
#include <string_view>

#include "calibrations/document/Shown.h"
#include "calibrations/document/ValueBuilder.h"
#include "polarline/errors.h"

namespace calibrations {
namespace {

bool isWord(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '.' ||
         c == '+' || c == '-';
}

class LiteralParser {
 public:
  LiteralParser(std::string_view text, const std::string& path) : text_(text), path_(path) {}

  Value parse() {
    try {
      value();
      skipBlanks();
      if (at_ < text_.size()) refuse("has " + here() + " behind its end");
      return builder_.take().value_or(Value{});
    } catch (const UnreadableValue& found) {
      refuse(std::string("has ") + found.what() + ", which is not read");
    }
  }

 private:
  /// The recursion is bounded by the builder, which throws when a list begins too deep.
  void value() {
    skipBlanks();
    const char c = current();
    if (c == '{') return map();
    if (c == '[') return list(']');
    if (c == '(') return list(')');
    if (c == '\'' || c == '"') return static_cast<void>(builder_.text(quoted()));
    const std::string word = nextWord();
    if (word == "b" && (current() == '\'' || current() == '"')) {
      skipQuoted();
      return static_cast<void>(builder_.nothing());
    }
    if (word.empty()) refuse("has " + here() + "; a value was wanted");
    if (word == "None") return static_cast<void>(builder_.nothing());
    builder_.text(word);
  }

  void map() {
    builder_.beginMap();
    ++at_;
    while (!ends('}')) {
      if (current() != '\'' && current() != '"') refuse("has " + here() + "; a key in quotes was wanted");
      builder_.key(quoted());
      skipBlanks();
      if (current() != ':') refuse("has " + here() + "; a colon was wanted");
      ++at_;
      value();
      separator('}');
    }
    builder_.end();
  }

  void list(char close) {
    builder_.beginList();
    ++at_;
    while (!ends(close)) {
      value();
      separator(close);
    }
    builder_.end();
  }

  /// Whether the list or map ends here; its end is taken then.
  bool ends(char close) {
    skipBlanks();
    if (current() != close) return false;
    ++at_;
    return true;
  }

  void separator(char close) {
    skipBlanks();
    if (current() == ',') {
      ++at_;
    } else if (current() != close) {
      refuse("has " + here() + "; a comma or " + close + " was wanted");
    }
  }

  std::string quoted() {
    const std::size_t begin = at_ + 1;
    skipQuoted();
    std::string text(text_.substr(begin, at_ - 1 - begin));
    if (text.find('\\') != std::string::npos) refuse("has a backslash in a text, which is not read");
    return text;
  }

  void skipQuoted() {
    const char quote = current();
    for (++at_; current() != quote; ++at_) {
      if (current() == '\\') ++at_;
      if (at_ >= text_.size() || current() == '\n') refuse("has a text that does not end");
    }
    ++at_;
  }

  std::string nextWord() {
    const std::size_t begin = at_;
    while (at_ < text_.size() && isWord(text_[at_])) ++at_;
    return std::string(text_.substr(begin, at_ - begin));
  }

  void skipBlanks() {
    while (at_ < text_.size()) {
      if (text_[at_] == '#') {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (std::string_view(" \t\r\n").find(text_[at_]) != std::string_view::npos) {
        ++at_;
      } else {
        return;
      }
    }
  }

  char current() const { return at_ < text_.size() ? text_[at_] : '\0'; }
  std::string here() const { return at_ < text_.size() ? shown(text_.substr(at_, 1)) : "its end"; }

  [[noreturn]] void refuse(const std::string& problem) const {
    const std::string_view before = text_.substr(0, std::min(at_, text_.size()));
    const auto line = 1 + std::ranges::count(before, '\n');
    throw polarline::InputError(path_ + ": line " + std::to_string(line), problem);
  }

  std::string_view text_;
  const std::string& path_;
  std::size_t at_ = 0;
  ValueBuilder builder_;
};

}  // namespace

Value valueOfLiteral(const std::string& text, const std::string& path) { return LiteralParser(text, path).parse(); }

}  // namespace calibrations
