#include "platform/DocumentTraps.h"

#include "platform/YamlTraps.h"

namespace documents {
namespace {

constexpr const char* kBase64 = "base64 data";
constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool contains(std::string_view text, std::string_view part) { return text.find(part) != std::string_view::npos; }

bool opensLevel(Syntax syntax, char c, char next) {
  if (syntax == Syntax::kJson) return c == '{' || c == '[';
  if (syntax == Syntax::kXml) return c == '<';
  const bool beginsNumber = (next >= '0' && next <= '9') || next == '.';
  return c == '{' || c == '[' || c == ':' || (c == '-' && !beginsNumber);
}

/// Whether nothing that is seen follows an equals sign or an ampersand: a carriage return cuts off the rest of its
/// line.
bool endsInsideTag(std::string_view text) {
  bool isInside = false;
  bool isCutOff = false;
  for (const char c : text) {
    if (c == '\n') isCutOff = false;
    if (isInside && c == '\r') isCutOff = true;
    if (!isCutOff && !contains(kBlanks, std::string_view(&c, 1))) isInside = c == '=' || c == '&';
  }
  return isInside;
}

const char* trapInJson(std::string_view text) { return contains(text, "$base64$") ? kBase64 : nullptr; }

/// An element of the type "str" without a text becomes a text of length -1; with one it never could be read.
const char* trapInXml(std::string_view text) {
  if (contains(text, "\"binary\"") || contains(text, "'binary'")) return kBase64;
  if (contains(text, "\"str\"") || contains(text, "'str'")) return "a text of a named type";
  return endsInsideTag(text) ? "an unfinished tag at its end" : nullptr;
}

}  // namespace

Syntax syntaxOf(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  if (text.starts_with('{')) return Syntax::kJson;
  if (text.starts_with("%YAML")) return Syntax::kYaml;
  return text.starts_with("<?xml") ? Syntax::kXml : Syntax::kNone;
}

std::size_t openingsOf(std::string_view text, Syntax syntax) {
  std::size_t count = 0;
  for (std::size_t k = 0; k < text.size(); ++k) {
    if (opensLevel(syntax, text[k], k + 1 < text.size() ? text[k + 1] : '\0')) ++count;
  }
  return count;
}

const char* trapIn(std::string_view text, Syntax syntax) {
  text = text.substr(0, text.find_last_not_of('\0') + 1);
  if (contains(text, std::string_view("\0", 1))) return "a NUL";
  if (syntax == Syntax::kJson) return trapInJson(text);
  if (syntax == Syntax::kXml) return trapInXml(text);
  return syntax == Syntax::kYaml ? trapInYaml(text) : nullptr;
}

}  // namespace documents
