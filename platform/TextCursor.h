#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace documents {

/// A place in a text, which moves forward only.
class TextCursor {
 public:
  explicit TextCursor(std::string_view text) : text_(text) {}

  bool atEnd() const { return at_ == text_.size(); }
  std::string_view rest() const { return text_.substr(at_); }
  /// The character so far ahead, or a NUL behind the end.
  char peek(std::size_t ahead) const { return ahead < rest().size() ? rest()[ahead] : '\0'; }
  bool startsWith(std::string_view mark) const { return rest().starts_with(mark); }
  bool startsWithOneOf(std::string_view marks) const {
    return !atEnd() && marks.find(text_[at_]) != std::string_view::npos;
  }
  /// Counted in characters from the beginning of the line that `leaveLine` led to.
  std::size_t column() const { return at_ - line_; }
  bool isFirstInLine() const { return text_.substr(line_, column()).find_first_not_of(' ') == std::string_view::npos; }

  void skip(std::size_t count) { at_ = std::min(at_ + count, text_.size()); }
  void skipOver(std::string_view marks) { at_ = std::min(text_.find_first_not_of(marks, at_), text_.size()); }
  void skipTo(std::string_view marks) { at_ = std::min(text_.find_first_of(marks, at_), text_.size()); }
  void skipPast(std::string_view mark) {
    const std::size_t found = text_.find(mark, at_);
    at_ = found == std::string_view::npos ? text_.size() : found + mark.size();
  }
  void leaveLine() {
    skipTo("\n");
    skip(1);
    line_ = at_;
  }
  void leaveText() { at_ = text_.size(); }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;  ///< Where the line of `at_` begins.
};

}  // namespace documents
