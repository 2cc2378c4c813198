#include "store/results/JsonCursor.h"

#include <fmt/format.h>

#include <charconv>
#include <limits>
#include <system_error>

#include "platform/Utf8.h"

namespace polarline::results {
namespace {

/// No document of ours is nested deeper.
constexpr std::size_t kDeepest = 32;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// A code point in UTF-8.
void appendUtf8(std::string& text, unsigned code) {
  const auto byte = [&](unsigned value) { text += static_cast<char>(value); };
  const auto tail = [&](unsigned shift) { byte(0x80U | ((code >> shift) & 0x3FU)); };
  if (code < 0x80U) {
    byte(code);
  } else if (code < 0x800U) {
    byte(0xC0U | (code >> 6U));
    tail(0);
  } else if (code < 0x10000U) {
    byte(0xE0U | (code >> 12U));
    tail(6);
    tail(0);
  } else {
    byte(0xF0U | (code >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

void JsonCursor::fault(const std::string& wanted) const { throw JsonFault(fmt::format("byte {}: {}", at_, wanted)); }

char JsonCursor::next() {
  while (at_ < text_.size()) {
    const char c = text_[at_];
    if (c != ' ' && c != '\n' && c != '\r' && c != '\t') return c;
    ++at_;
  }
  return '\0';
}

void JsonCursor::open(char bracket) {
  if (next() != bracket) fault(bracket == '{' ? "an object was wanted" : "a list was wanted");
  if (++depth_ > kDeepest) fault(fmt::format("nested deeper than {}", kDeepest));
  ++at_;
}

bool JsonCursor::goesOn(char bracket, bool is_first) {
  const char c = next();
  if (c == bracket) {
    ++at_;
    --depth_;
    return false;
  }
  if (is_first) return true;
  if (c != ',') fault(fmt::format("',' or '{}' was wanted", bracket));
  ++at_;
  return true;
}

void JsonCursor::colon() {
  if (next() != ':') fault("':' was wanted");
  ++at_;
}

bool JsonCursor::word(std::string_view word) {
  next();
  if (text_.substr(at_, word.size()) != word) return false;
  at_ += word.size();
  return true;
}

void JsonCursor::digits() {
  if (at_ >= text_.size() || !isDigit(text_[at_])) fault("a digit was wanted");
  while (at_ < text_.size() && isDigit(text_[at_])) ++at_;
}

bool JsonCursor::take(char c) {
  const bool is_there = at_ < text_.size() && text_[at_] == c;
  if (is_there) ++at_;
  return is_there;
}

JsonCursor::Number JsonCursor::numberText() {
  next();
  const std::size_t begin = at_;
  take('-');
  if (!take('0')) digits();
  if (take('.')) digits();
  const bool has_exponent = take('e') || take('E');
  if (has_exponent) {
    if (!take('-')) take('+');
    digits();
  }
  return {text_.substr(begin, at_ - begin), has_exponent};
}

double JsonCursor::value(std::string_view number) const {
  double value = 0.0;
  if (std::from_chars(number.data(), number.data() + number.size(), value).ec != std::errc())
    fault("a number beyond all bounds");
  return value;
}

double JsonCursor::number() {
  if (null()) return std::numeric_limits<double>::quiet_NaN();
  const char c = next();
  if (c != '-' && !isDigit(c)) fault("a number was wanted");
  return value(numberText().written);
}

void JsonCursor::skipNumber() {
  constexpr std::size_t kNoDoubleReaches = 308;  // Digits; a shorter number needs an exponent to be beyond all bounds.
  const Number number = numberText();
  if (number.has_exponent || number.written.size() > kNoDoubleReaches) value(number.written);
}

bool JsonCursor::truth() {
  if (word("true")) return true;
  if (!word("false")) fault("true or false was wanted");
  return false;
}

bool JsonCursor::null() { return word("null"); }

unsigned JsonCursor::hex4() {
  unsigned code = 0;
  const std::string_view written = text_.substr(at_, 4);
  const auto [rest, error] = std::from_chars(written.data(), written.data() + written.size(), code, 16);
  if (written.size() != 4 || error != std::errc() || rest != written.data() + 4) fault("four hex digits were wanted");
  at_ += 4;
  return code;
}

void JsonCursor::appendEscape(std::string& taken) {
  constexpr std::string_view kEscapes = "\"\\/bfnrt";
  constexpr std::string_view kMeanings = "\"\\/\b\f\n\r\t";
  const char c = at_ < text_.size() ? text_[at_] : '\0';
  ++at_;
  if (const std::size_t place = kEscapes.find(c); c != '\0' && place != std::string_view::npos) {
    taken += kMeanings[place];
    return;
  }
  if (c != 'u') fault("no escape that JSON knows");
  unsigned code = hex4();
  if (code >= 0xD800U && code < 0xDC00U && text_.substr(at_, 2) == "\\u") {
    at_ += 2;
    const unsigned low = hex4();
    if (low < 0xDC00U || low > 0xDFFFU) fault("half a character");
    code = 0x10000U + ((code - 0xD800U) << 10U) + (low - 0xDC00U);
  }
  if (code >= 0xD800U && code < 0xE000U) fault("half a character");
  appendUtf8(taken, code);
}

std::string JsonCursor::text() {
  if (next() != '"') fault("a text was wanted");
  ++at_;
  std::string taken;
  unsigned char bits = 0;  // That any byte has: without the highest one the text is ASCII.
  while (true) {
    const std::size_t begin = at_;
    while (at_ < text_.size() && text_[at_] != '"' && text_[at_] != '\\' &&
           static_cast<unsigned char>(text_[at_]) >= ' ')
      bits |= static_cast<unsigned char>(text_[at_++]);
    taken.append(text_, begin, at_ - begin);
    if (at_ >= text_.size()) fault("the text has no end");
    if (text_[at_] == '"') break;
    if (text_[at_] != '\\') fault("a control character in a text");
    ++at_;
    appendEscape(taken);
  }
  ++at_;
  if (bits >= 0x80U && !utf8::isValid(taken)) fault("a text that is not UTF-8");
  return taken;
}

void JsonCursor::skip() {
  const char c = next();
  if (c == '"') {
    text();
  } else if (c == '-' || isDigit(c)) {
    skipNumber();
  } else if (c == '[') {
    array([this] { skip(); });
  } else if (c == '{') {
    object([this](std::string_view) { skip(); });
  } else if (!null()) {
    truth();
  }
}

void JsonCursor::end() {
  next();
  if (at_ < text_.size()) fault("the end of the text was wanted");
}

}  // namespace polarline::results
