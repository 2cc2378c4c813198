#include "platform/DocumentTraps.h"

#include "platform/JsonTraps.h"
#include "platform/XmlTraps.h"
#include "platform/YamlTraps.h"

namespace documents {
namespace {

std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  return text.starts_with(kByteOrderMark) ? text.substr(kByteOrderMark.size()) : text;
}

}  // namespace

Syntax syntaxOf(std::string_view text) {
  text = withoutByteOrderMark(text);
  if (text.starts_with('{')) return Syntax::kJson;
  if (text.starts_with("%YAML")) return Syntax::kYaml;
  return text.starts_with("<?xml") ? Syntax::kXml : Syntax::kNone;
}

const char* trapIn(std::string_view text) {
  text = text.substr(0, text.find_last_not_of('\0') + 1);
  if (text.find('\0') != std::string_view::npos) return "a NUL";
  const Syntax syntax = syntaxOf(text);
  text = withoutByteOrderMark(text);
  if (syntax == Syntax::kJson) return trapInJson(text);
  if (syntax == Syntax::kXml) return trapInXml(text);
  return syntax == Syntax::kYaml ? trapInYaml(text) : nullptr;
}

}  // namespace documents
