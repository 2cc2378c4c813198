#include "report/fill/Escape.h"

#include <algorithm>
#include <cstddef>

#include "platform/Utf8.h"

namespace polarline {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::string_view kLineSeparator = "\xE2\x80\xA8";
constexpr std::string_view kParagraphSeparator = "\xE2\x80\xA9";

std::string_view entityOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

}  // namespace

std::string htmlOf(std::string_view text) {
  std::string html;
  html.reserve(text.size());
  while (!text.empty()) {
    const std::size_t length = utf8::length(text);
    const std::string_view entity = length == 0 ? kReplacement : entityOf(text[0]);
    html += entity.empty() ? text.substr(0, length) : entity;
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return html;
}

std::string scriptJson(std::string_view json) {
  constexpr std::size_t kLonger = 5;  // By so much an escape is at most; growing would copy a page's data once more.
  std::string text;
  text.reserve(json.size() + kLonger * static_cast<std::size_t>(std::ranges::count(json, '<')) +
               kLonger * static_cast<std::size_t>(std::ranges::count(json, kLineSeparator[0])));
  std::size_t at = 0;
  while (at < json.size()) {
    const std::size_t next = std::min(json.find_first_of("<\xE2", at), json.size());
    text += json.substr(at, next - at);
    at = next;
    if (at == json.size()) break;
    const std::string_view three = json.substr(at, kLineSeparator.size());
    if (json[at] == '<') {
      text += "\\u003c";
      at += 1;
    } else if (three == kLineSeparator || three == kParagraphSeparator) {
      text += three == kLineSeparator ? "\\u2028" : "\\u2029";
      at += three.size();
    } else {
      text += json[at++];
    }
  }
  return text;
}

}  // namespace polarline
