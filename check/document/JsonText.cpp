#include "check/document/JsonText.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>

#include "platform/Utf8.h"

namespace polarline {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// The fewest digits that read back to the number. Readers take "-0" for a whole number, which has no such thing.
template <typename Number>
std::string shortest(Number number) {
  return number == 0 && std::signbit(number) ? "-0.0" : fmt::format("{}", number);
}

void appendQuoted(std::string& out, std::string_view text) {
  out += '"';
  while (!text.empty()) {
    const std::size_t length = utf8::length(text);
    const char first = text[0];
    if (length == 0) {
      out += kReplacement;
    } else if (first == '"' || first == '\\') {
      out += '\\';
      out += first;
    } else if (static_cast<unsigned char>(first) < 0x20U) {
      fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(first));
    } else {
      out += text.substr(0, length);
    }
    text.remove_prefix(length == 0 ? 1 : length);
  }
  out += '"';
}

}  // namespace

bool JsonText::isInLines() const {
  constexpr std::size_t kMostIndented = 3;  // Deeper down a line is long enough.
  return open_.size() <= kMostIndented && open_.back() == '}';
}

void JsonText::newLine() {
  text_ += '\n';
  text_.append(2 * open_.size(), ' ');
}

void JsonText::separate() {
  if (is_behind_key_) {
    is_behind_key_ = false;
    return;
  }
  if (!is_first_) text_ += ',';
  if (is_short_) {
    is_first_ = false;
    return;
  }
  if (!open_.empty() && isInLines()) {
    newLine();
  } else if (!is_first_) {
    text_ += ' ';
  }
  is_first_ = false;
}

JsonText& JsonText::object() {
  separate();
  text_ += '{';
  open_.push_back('}');
  is_first_ = true;
  return *this;
}

JsonText& JsonText::array() {
  separate();
  text_ += '[';
  open_.push_back(']');
  is_first_ = true;
  return *this;
}

JsonText& JsonText::end() {
  const char bracket = open_.back();
  const bool ends_lines = !is_short_ && isInLines() && !is_first_;
  open_.pop_back();
  if (ends_lines) newLine();
  text_ += bracket;
  is_first_ = false;
  return *this;
}

JsonText& JsonText::key(std::string_view name) {
  separate();
  appendQuoted(text_, name);
  text_ += is_short_ ? ":" : ": ";
  is_behind_key_ = true;
  return *this;
}

JsonText& JsonText::raw(std::string_view json) {
  separate();
  text_ += json;
  return *this;
}

JsonText& JsonText::value(std::string_view text) {
  separate();
  appendQuoted(text_, text);
  return *this;
}

JsonText& JsonText::value(double number) { return std::isfinite(number) ? raw(shortest(number)) : null(); }

JsonText& JsonText::value(float number) { return std::isfinite(number) ? raw(shortest(number)) : null(); }

JsonText& JsonText::value(std::int64_t number) { return raw(fmt::format("{}", number)); }

JsonText& JsonText::value(bool truth) { return raw(truth ? "true" : "false"); }

JsonText& JsonText::null() { return raw("null"); }

std::string JsonText::take() {
  std::string taken;
  taken.swap(text_);
  return taken;
}

}  // namespace polarline
