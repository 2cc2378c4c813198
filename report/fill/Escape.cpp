#include "report/fill/Escape.h"

#include <algorithm>
#include <cstddef>

namespace polarline {
namespace {

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
  for (const char c : text) {
    const std::string_view entity = entityOf(c);
    if (entity.empty()) {
      html += c;
    } else {
      html += entity;
    }
  }
  return html;
}

std::string scriptJson(std::string_view json) {
  std::string text;
  text.reserve(json.size());
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
